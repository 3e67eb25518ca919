#include "DentalWorkspace.h"

#include "Viewer2D.h"

#include <guicore/utility/dental/ToothNameGenerator.h>

#include <QDebug>
#include <QJsonArray>

DentalWorkspace::DentalWorkspace()
{
    if (ToothNameGenerator::TOOTH_NUMBERING_SYSTEM.isEmpty())
        ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = QStringLiteral("FDI");
}

DentalWorkspace::~DentalWorkspace() = default;

void DentalWorkspace::addViewer(Viewer2D* viewer)
{
    m_viewers.append(viewer);
}

Viewer2D* DentalWorkspace::viewer(const QString& id) const
{
    for (const auto& viewer : m_viewers) {
        if (viewer && viewer->getId() == id)
            return viewer;
    }
    return nullptr;
}

QList<Viewer2D*> DentalWorkspace::viewers() const
{
    QList<Viewer2D*> result;
    for (const auto& viewer : m_viewers) {
        if (viewer)
            result.append(viewer);
    }
    return result;
}

void DentalWorkspace::setCurrentViewer(Viewer2D* viewer)
{
    if (m_current == viewer)
        return;
    m_current = viewer;
    Q_EMIT currentViewerChanged(viewer);
}

QString DentalWorkspace::notation() const
{
    return ToothNameGenerator::TOOTH_NUMBERING_SYSTEM;
}

void DentalWorkspace::setNotation(const QString& notation)
{
    if (notation != QLatin1String("FDI") && notation != QLatin1String("UNIV")) {
        qWarning().noquote() << "DentalWorkspace : unknown tooth numbering" << notation;
        return;
    }
    if (ToothNameGenerator::TOOTH_NUMBERING_SYSTEM == notation)
        return;
    // The generator's numbering is application-wide: every tooth name follows it.
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = notation;
    Q_EMIT notationChanged(notation);
}

QJsonObject DentalWorkspace::saveDocument() const
{
    QJsonArray measurements;
    for (Viewer2D* viewer : viewers()) {
        for (const Measurement* measurement : viewer->measurements()) {
            QJsonArray points;
            for (const QPointF& point : measurement->points)
                points.append(QJsonArray {point.x(), point.y()});
            QJsonObject object {{QStringLiteral("id"), measurement->id},
                {QStringLiteral("viewer"), viewer->getId()},
                {QStringLiteral("kind"), measurement->kind}, {QStringLiteral("points"), points},
                {QStringLiteral("text"), viewer->measurementText(*measurement)}};
            measurements.append(object);
        }
    }
    return QJsonObject {{QStringLiteral("measurements"), measurements}};
}

bool DentalWorkspace::loadDocument(const QJsonObject& document)
{
    for (Viewer2D* viewer : viewers())
        viewer->clearMeasurements();
    bool complete = true;
    const QJsonArray measurements = document.value(QStringLiteral("measurements")).toArray();
    for (const QJsonValue& value : measurements) {
        const QJsonObject object = value.toObject();
        Viewer2D* target = viewer(object.value(QStringLiteral("viewer")).toString());
        const QString kind = object.value(QStringLiteral("kind")).toString();
        QList<QPointF> points;
        for (const QJsonValue& point : object.value(QStringLiteral("points")).toArray()) {
            const QJsonArray xy = point.toArray();
            points.append(QPointF(xy.at(0).toDouble(), xy.at(1).toDouble()));
        }
        if (!target || points.isEmpty()
            || (kind != QLatin1String("length") && kind != QLatin1String("area")
                && kind != QLatin1String("text"))) {
            complete = false;
            continue;
        }
        target->addMeasurement(kind, points,
            kind == QLatin1String("text") ? object.value(QStringLiteral("text")).toString()
                                          : QString(),
            object.value(QStringLiteral("id")).toString());
    }
    return complete;
}
