#pragma once

#include <QJsonObject>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

// One measurement or note of the document, as a value: what is saved, what undo restores and
// what a viewer draws. Points are in image pixels of the viewer's image.
struct MeasurementData
{
    QString id;
    QString viewer; // the id of the viewer it was made in
    QString kind; // "length", "area" or "text"
    QList<QPointF> points;
    QString text; // a note's text; lengths and areas show their value instead
    // The label's place relative to the last point, in image pixels. Part of what the views
    // show (the ui state tree), yet moved with undo like the geometry.
    QPointF labelOffset {12, -24};
    // The cross-section slice it was made on; -1 in a viewer without slices. A measurement
    // belongs to the anatomy of its slice and is shown on that slice only.
    int slice = -1;

    bool operator==(const MeasurementData& other) const;
    bool operator!=(const MeasurementData& other) const { return !(*this == other); }

    bool isNote() const { return kind == QLatin1String("text"); }
    // The value shown in its label: "30.0 mm", "80.0 mm²", or a note's text.
    QString valueText(double pixelSpacing) const;

    // The document's JSON form; the label offset lives in the ui state tree instead.
    QJsonObject toJson() const;
    // Null id when the object is no measurement this viewer can show: an unknown kind, a
    // length without two points, an area that is not a simple outline, an empty note, points
    // that are not finite.
    static MeasurementData fromJson(const QJsonObject& object);
    // Why the geometry cannot be a measurement of its kind; empty when it can.
    static QString geometryProblem(const QString& kind, const QList<QPointF>& points);
};

namespace geometry {

// Area of a simple polygon, in square pixels.
double polygonArea(const QList<QPointF>& points);
// True when two edges of the closed outline that are not neighbours meet: such an outline has
// no meaningful area (the lobes of a bow tie cancel out).
bool crossesItself(const QList<QPointF>& outline);
// True when the segment from the last point to `next` would meet an earlier edge of the open
// outline that is not its neighbour.
bool segmentCrossesOutline(const QList<QPointF>& outline, const QPointF& next);
// The distance from p to the segment a-b.
double distanceToSegment(const QPointF& p, const QPointF& a, const QPointF& b);
// The point of `rect` nearest to p (p itself when inside).
QPointF nearestPointIn(const QRectF& rect, const QPointF& p);

} // namespace geometry
