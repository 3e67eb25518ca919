#include "MeasurementData.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QLineF>
#include <cmath>

namespace {

bool finite(const QPointF& p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y());
}

// Segments that share no end point and meet; neighbours of an outline share one and never count.
bool segmentsMeet(const QPointF& a1, const QPointF& a2, const QPointF& b1, const QPointF& b2)
{
    return QLineF(a1, a2).intersects(QLineF(b1, b2), nullptr) == QLineF::BoundedIntersection;
}

QString tr(const char* text)
{
    return QCoreApplication::translate("MeasurementData", text);
}

} // namespace

bool MeasurementData::operator==(const MeasurementData& other) const
{
    return id == other.id && viewer == other.viewer && kind == other.kind && points == other.points
        && text == other.text && labelOffset == other.labelOffset && slice == other.slice;
}

QString MeasurementData::valueText(double pixelSpacing) const
{
    if (kind == QLatin1String("length") && points.size() == 2) {
        const double mm = QLineF(points[0], points[1]).length() * pixelSpacing;
        return tr("%1 mm").arg(mm, 0, 'f', 1);
    }
    if (kind == QLatin1String("area") && points.size() > 2) {
        const double mm2 = geometry::polygonArea(points) * pixelSpacing * pixelSpacing;
        return tr("%1 mm²").arg(mm2, 0, 'f', 1);
    }
    return text;
}

QJsonObject MeasurementData::toJson() const
{
    QJsonArray xy;
    for (const QPointF& point : points)
        xy.append(QJsonArray {point.x(), point.y()});
    QJsonObject object {{QStringLiteral("id"), id}, {QStringLiteral("viewer"), viewer},
        {QStringLiteral("kind"), kind}, {QStringLiteral("points"), xy},
        {QStringLiteral("text"), text}};
    if (slice >= 0)
        object.insert(QStringLiteral("slice"), slice);
    return object;
}

MeasurementData MeasurementData::fromJson(const QJsonObject& object)
{
    MeasurementData data;
    data.kind = object.value(QStringLiteral("kind")).toString();
    data.viewer = object.value(QStringLiteral("viewer")).toString();
    data.text = object.value(QStringLiteral("text")).toString();
    data.slice = object.value(QStringLiteral("slice")).toInt(-1);
    for (const QJsonValue& point : object.value(QStringLiteral("points")).toArray()) {
        const QJsonArray xy = point.toArray();
        data.points.append(QPointF(xy.at(0).toDouble(NAN), xy.at(1).toDouble(NAN)));
    }
    const bool readable = !data.viewer.isEmpty()
        && geometryProblem(data.kind, data.points).isEmpty()
        && (!data.isNote() || !data.text.trimmed().isEmpty());
    if (readable)
        data.id = object.value(QStringLiteral("id")).toString();
    return data;
}

QString MeasurementData::geometryProblem(const QString& kind, const QList<QPointF>& points)
{
    for (const QPointF& point : points) {
        if (!finite(point))
            return tr("a point is not a number");
    }
    if (kind == QLatin1String("length"))
        return points.size() == 2 && points[0] != points[1] ? QString()
                                                            : tr("a length needs two ends");
    if (kind == QLatin1String("area")) {
        if (points.size() < 3)
            return tr("an area needs three corners");
        if (geometry::crossesItself(points))
            return tr("the outline crosses itself");
        return QString();
    }
    if (kind == QLatin1String("text"))
        return points.size() == 1 ? QString() : tr("a note has one place");
    return tr("unknown kind");
}

namespace geometry {

double polygonArea(const QList<QPointF>& points)
{
    double twice = 0.0;
    for (int i = 0; i < points.size(); ++i) {
        const QPointF& a = points[i];
        const QPointF& b = points[(i + 1) % points.size()];
        twice += a.x() * b.y() - b.x() * a.y();
    }
    return std::abs(twice) / 2.0;
}

bool crossesItself(const QList<QPointF>& outline)
{
    const int n = int(outline.size());
    for (int i = 0; i < n; ++i) {
        // Edge i runs from point i to i + 1; edges i - 1 and i + 1 are its neighbours.
        for (int j = i + 2; j < n; ++j) {
            if (i == 0 && j == n - 1)
                continue;
            if (segmentsMeet(outline[i], outline[(i + 1) % n], outline[j], outline[(j + 1) % n]))
                return true;
        }
    }
    return false;
}

bool segmentCrossesOutline(const QList<QPointF>& outline, const QPointF& next)
{
    const int n = int(outline.size());
    for (int i = 0; i + 2 < n; ++i) {
        if (segmentsMeet(outline[i], outline[i + 1], outline.last(), next))
            return true;
    }
    return false;
}

double distanceToSegment(const QPointF& p, const QPointF& a, const QPointF& b)
{
    const QPointF ab = b - a;
    const double lengthSquared = QPointF::dotProduct(ab, ab);
    const double t
        = lengthSquared > 0 ? qBound(0.0, QPointF::dotProduct(p - a, ab) / lengthSquared, 1.0) : 0;
    return QLineF(p, a + t * ab).length();
}

QPointF nearestPointIn(const QRectF& rect, const QPointF& p)
{
    return QPointF(
        qBound(rect.left(), p.x(), rect.right()), qBound(rect.top(), p.y(), rect.bottom()));
}

} // namespace geometry
