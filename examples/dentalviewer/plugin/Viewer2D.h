#pragma once

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QString>

class CustomGraphicsLabelItem;
class CustomGraphicsLineSetItem;
class CustomGraphicsPixmapItem;
class CustomGraphicsTextItem;
class GraphicsSceneExtra;
class GraphicsViewExtra;
class QWidget;

// One measurement or annotation drawn over an image. Its items belong to the viewer's scene.
struct Measurement
{
    QString id;
    QString kind; // "length", "area" or "text"
    QList<QPointF> points;
    QString text;
    QPointF labelOffset; // the label's position relative to the first point
    CustomGraphicsLineSetItem* lines = nullptr;
    CustomGraphicsLabelItem* label = nullptr;
    CustomGraphicsTextItem* textItem = nullptr;
};

// A 2-D viewer: an extended graphics view over an extended scene showing one image with overlay
// measurements. The view widget is owned by whoever takes it (the View); the scene by this object.
class Viewer2D : public QObject
{
    Q_OBJECT

public:
    Viewer2D(const QString& id, double pixelSpacing, QObject* parent = nullptr);
    ~Viewer2D() override;

    QString getId() const { return m_id; }
    // The scene; owned by the viewer.
    GraphicsSceneExtra* scene() const { return m_scene; }
    // The view widget, made on first call; owned by its Qt parent once the caller reparents it.
    GraphicsViewExtra* view();
    bool hasView() const { return m_view != nullptr; }

    void setImage(const QImage& image);
    QRectF imageRect() const;

    QRectF getZoomBox() const;
    void setZoomBox(const QRectF& box);
    void resetView();
    // Zooms by whole wheel steps (120 a step, positive zooms in) keeping `scenePos` where it is
    // on screen. Within a range of the fitted scale; nothing without a view.
    void zoomAt(const QPointF& scenePos, int delta);
    // Moves what is shown by a distance in viewport pixels, as a hand drag does.
    void panBy(const QPointF& pixels);

    // Measurements. The viewer owns the items; the returned pointer stays valid until removal.
    Measurement* addMeasurement(const QString& kind, const QList<QPointF>& points,
        const QString& text = QString(), const QString& id = QString());
    void updateMeasurement(Measurement* measurement);
    void removeMeasurement(Measurement* measurement);
    void clearMeasurements();
    const QList<Measurement*>& measurements() const { return m_measurements; }
    Measurement* findMeasurement(const QString& id) const;
    // Moves the measurement's label to `offset` from its last point (scene units).
    void setLabelOffset(Measurement* measurement, const QPointF& offset);

    QString measurementText(const Measurement& measurement) const;

Q_SIGNALS:
    void measurementsChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What the view shows now, in scene units; remembered so that it survives a resize or a
    // hidden view.
    QRectF visibleBox() const;
    void endTextEditing(const QPointF* except = nullptr);

    QString m_id;
    double m_pixelSpacing;
    GraphicsSceneExtra* m_scene = nullptr;
    GraphicsViewExtra* m_view = nullptr;
    // Compared by identity only: the filter also sees the viewport's last events while it dies.
    const QObject* m_viewport = nullptr;
    CustomGraphicsPixmapItem* m_image = nullptr;
    QList<Measurement*> m_measurements;
    QRectF m_pendingZoomBox;
    // The label being dragged, where the drag began and the label's offset then.
    Measurement* m_draggedLabel = nullptr;
    QPointF m_dragStart;
    QPointF m_offsetAtDragStart;
    // A pan with the middle button, or the left one with Control held, and where it last was.
    bool m_panning = false;
    Qt::MouseButton m_panButton = Qt::NoButton;
    QPointF m_panFrom;
};
