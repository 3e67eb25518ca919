#include "Viewer2D.h"

#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsLineSetItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/style/StyleManager.h>

#include <QDebug>
#include <QEvent>
#include <QGraphicsSceneMouseEvent>
#include <QLineF>
#include <QPen>
#include <QPixmap>
#include <QUuid>
#include <cmath>

namespace {

QColor styleColor(const char* id, const QColor& fallback)
{
    if (!StyleManager::hasManager())
        return fallback;
    const QColor color
        = StyleManager::manager().getOptionalColor(QLatin1Char('@') + QString::fromLatin1(id));
    return color.isValid() ? color : fallback;
}

QList<QLineF> polyline(const QList<QPointF>& points, bool closed)
{
    QList<QLineF> lines;
    for (int i = 1; i < points.size(); ++i)
        lines.append(QLineF(points[i - 1], points[i]));
    if (closed && points.size() > 2)
        lines.append(QLineF(points.last(), points.first()));
    return lines;
}

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

} // namespace

Viewer2D::Viewer2D(const QString& id, double pixelSpacing, QObject* parent)
    : QObject(parent)
    , m_id(id)
    , m_pixelSpacing(pixelSpacing)
    , m_scene(new GraphicsSceneExtra(this))
{
    m_scene->setViewerTag(id);
    m_scene->setBackgroundBrush(styleColor("VIEWER_BACKGROUND_COLOR", Qt::black));
    m_image = new CustomGraphicsPixmapItem(id + QStringLiteral("_image"));
    m_image->setZValue(-100);
    // The image is a backdrop. The scene offers a press to pixmap items before line draggers, and
    // a pixmap item takes every left press, so an enabled image would leave the draggers drawn
    // over it (a cross-section's cross) nothing to grab. Disabled, it still paints.
    m_image->setEnabled(false);
    m_scene->addItem(m_image);
}

Viewer2D::~Viewer2D()
{
    qDeleteAll(m_measurements);
}

GraphicsViewExtra* Viewer2D::view()
{
    if (!m_view) {
        m_view = new GraphicsViewExtra(GraphicsViewExtra::OnScreen, m_scene);
        m_view->setObjectName(m_id);
        m_view->setRenderHint(QPainter::Antialiasing);
        m_view->setMinimumSize(320, 240);
        // The viewport is resized after the view's layout, so its size is final in the filter.
        m_viewport = m_view->viewport();
        m_view->viewport()->installEventFilter(this);
    }
    return m_view;
}

bool Viewer2D::eventFilter(QObject* watched, QEvent* event)
{
    // A zoom box restored before the view had its size is applied at the first real resize.
    if (event->type() == QEvent::Resize && m_view && watched == m_viewport) {
        if (m_pendingZoomBox.isValid())
            m_view->fitInView(m_pendingZoomBox, Qt::KeepAspectRatio);
        else
            m_view->fitInView(imageRect(), Qt::KeepAspectRatio);
    }
    return QObject::eventFilter(watched, event);
}

void Viewer2D::setImage(const QImage& image)
{
    m_image->setPixmap(QPixmap::fromImage(image));
    m_scene->setSceneRect(imageRect());
}

QRectF Viewer2D::imageRect() const
{
    return m_image->boundingRect();
}

QRectF Viewer2D::getZoomBox() const
{
    if (!m_view || !m_view->isVisible())
        return m_pendingZoomBox.isValid() ? m_pendingZoomBox : imageRect();
    return m_view->mapToScene(m_view->viewport()->rect()).boundingRect();
}

void Viewer2D::setZoomBox(const QRectF& box)
{
    if (!box.isValid())
        return;
    m_pendingZoomBox = box;
    if (m_view)
        m_view->fitInView(box, Qt::KeepAspectRatio);
}

void Viewer2D::resetView()
{
    m_pendingZoomBox = QRectF();
    if (m_view)
        m_view->fitInView(imageRect(), Qt::KeepAspectRatio);
}

QString Viewer2D::measurementText(const Measurement& measurement) const
{
    if (measurement.kind == QLatin1String("length") && measurement.points.size() == 2) {
        const double mm
            = QLineF(measurement.points[0], measurement.points[1]).length() * m_pixelSpacing;
        return tr("%1 mm").arg(mm, 0, 'f', 1);
    }
    if (measurement.kind == QLatin1String("area") && measurement.points.size() > 2) {
        const double mm2 = polygonArea(measurement.points) * m_pixelSpacing * m_pixelSpacing;
        return tr("%1 mm²").arg(mm2, 0, 'f', 1);
    }
    return measurement.text;
}

Measurement* Viewer2D::addMeasurement(
    const QString& kind, const QList<QPointF>& points, const QString& text, const QString& id)
{
    auto* measurement = new Measurement;
    measurement->id = id.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces) : id;
    measurement->kind = kind;
    measurement->points = points;
    measurement->text = text;
    measurement->labelOffset = QPointF(12, -24);
    const QString name = m_id + QStringLiteral("_") + kind;

    if (kind == QLatin1String("text")) {
        measurement->textItem = new CustomGraphicsTextItem();
        measurement->textItem->setObjectName(name);
        measurement->textItem->setDefaultTextColor(
            styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow));
        measurement->textItem->setPlainText(text);
        m_scene->addItem(measurement->textItem);
        connect(measurement->textItem, &CustomGraphicsTextItem::textChanged, this,
            [this, measurement](const QString& newText) {
                measurement->text = newText;
                Q_EMIT measurementsChanged();
            });
    } else {
        measurement->lines = new CustomGraphicsLineSetItem(name);
        QPen pen(styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow), 2.0);
        pen.setCosmetic(true);
        measurement->lines->setPen(pen);
        QColor fill = styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow);
        fill.setAlpha(60);
        measurement->lines->setFillColor(fill);
        m_scene->addItem(measurement->lines);
        measurement->label = new CustomGraphicsLabelItem(name + QStringLiteral("_label"));
        measurement->label->setTextColor(styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow));
        measurement->label->setTextOutlineColor(
            styleColor("MEASUREMENT_LABEL_OUTLINE_COLOR", Qt::black));
        measurement->label->setBackgroundBrush(
            styleColor("MEASUREMENT_LABEL_BACKGROUND_COLOR", QColor(0, 0, 0, 150)));
        measurement->label->fillBackground(true);
        measurement->label->setFlag(QGraphicsItem::ItemIgnoresTransformations);
        m_scene->addItem(measurement->label);
        // A label reports its drag and never moves itself: the viewer moves it by the mouse's
        // travel and keeps the new offset, which the ui state tree records. The scene hands
        // moves to every overlay item, so only the label that took the press follows them.
        connect(measurement->label, &CustomGraphicsItem::leftClicked, this,
            [this, measurement](QGraphicsSceneMouseEvent* event) {
                m_draggedLabel = measurement;
                m_dragStart = event->scenePos();
                m_offsetAtDragStart = measurement->labelOffset;
            });
        connect(measurement->label, &CustomGraphicsItem::mouseMoved, this,
            [this, measurement](QGraphicsSceneMouseEvent* event) {
                if (m_draggedLabel == measurement && event->buttons().testFlag(Qt::LeftButton))
                    setLabelOffset(
                        measurement, m_offsetAtDragStart + event->scenePos() - m_dragStart);
            });
        connect(measurement->label, &CustomGraphicsItem::mouseReleased, this,
            [this, measurement](QGraphicsSceneMouseEvent*) {
                if (m_draggedLabel == measurement)
                    m_draggedLabel = nullptr;
            });
    }
    m_measurements.append(measurement);
    updateMeasurement(measurement);
    return measurement;
}

void Viewer2D::updateMeasurement(Measurement* measurement)
{
    if (!measurement || measurement->points.isEmpty())
        return;
    if (measurement->textItem) {
        measurement->textItem->setPos(measurement->points.first());
    } else {
        const bool closed = measurement->kind == QLatin1String("area");
        if (closed && measurement->points.size() > 2)
            measurement->lines->setClosedLineSet(polyline(measurement->points, true));
        else
            measurement->lines->setLineSet(polyline(measurement->points, false));
        measurement->label->setText(measurementText(*measurement));
        measurement->label->setPos(measurement->points.last() + measurement->labelOffset);
    }
    Q_EMIT measurementsChanged();
}

void Viewer2D::removeMeasurement(Measurement* measurement)
{
    if (!m_measurements.removeOne(measurement))
        return;
    if (m_draggedLabel == measurement)
        m_draggedLabel = nullptr;
    delete measurement->lines;
    delete measurement->label;
    delete measurement->textItem;
    delete measurement;
    Q_EMIT measurementsChanged();
}

void Viewer2D::clearMeasurements()
{
    while (!m_measurements.isEmpty())
        removeMeasurement(m_measurements.last());
}

void Viewer2D::setLabelOffset(Measurement* measurement, const QPointF& offset)
{
    if (!measurement || !m_measurements.contains(measurement))
        return;
    if (!std::isfinite(offset.x()) || !std::isfinite(offset.y())) {
        qWarning() << "Viewer2D : label offset ignored, not finite:" << offset;
        return;
    }
    if (measurement->labelOffset == offset)
        return;
    measurement->labelOffset = offset;
    updateMeasurement(measurement);
}

Measurement* Viewer2D::findMeasurement(const QString& id) const
{
    for (Measurement* measurement : m_measurements) {
        if (measurement->id == id)
            return measurement;
    }
    return nullptr;
}
