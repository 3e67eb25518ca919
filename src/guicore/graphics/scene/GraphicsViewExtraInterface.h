#pragma once

#include <guicore/graphics/scene/GraphicsViewExtraSignals.h>
#include <guicore/guicore_export.h>

#include <QGraphicsView>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QPolygon>
#include <QPolygonF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QTransform>

class QEnterEvent;
class QEvent;
class QGraphicsItem;
class QGraphicsScene;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWidget;

/// The signal-carrying face of a GraphicsViewExtra, through which the rest of the system drives a
/// view without knowing whether it is a plain widget or one rendered inside a Quick item.
class GUICORE_EXPORT GraphicsViewExtraInterface : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(GraphicsViewExtraInterface)

public:
    /// An interface without parent.
    GraphicsViewExtraInterface();
    /// The parent owns the interface as usual.
    explicit GraphicsViewExtraInterface(QObject* parent);
    ~GraphicsViewExtraInterface() override;

    /// QGraphicsView::fitInView() on the view, with the scene rectangle in scene coordinates.
    virtual void fitInView(const QRectF& rect, Qt::AspectRatioMode mode) = 0;
    /// The centre of the view's scene rectangle, in scene coordinates.
    virtual QPointF getVisibleSceneCenter() const = 0;
    /// @{
    /// The view widget's size and rectangle, in device-independent pixels.
    virtual QSize size() const = 0;
    virtual QRect rect() const = 0;
    /// @}
    /// The view's viewport widget, owned by the view; nullptr when there is none.
    virtual QWidget* viewport() const = 0;
    /// The view's scene, not owned by the view or the interface.
    virtual QGraphicsScene* scene() const = 0;
    /// @{
    /// The viewport's rectangle and its geometry in the view; empty without a viewport.
    virtual QRect viewportRect() const = 0;
    virtual QRect viewportGeometry() const = 0;
    /// @}
    /// @{
    /// Resizes the view widget (pixels); implementations emit resized() afterwards.
    virtual void resize(int width, int height) = 0;
    virtual void resize(const QSize& size) = 0;
    /// @}
    /// Scrolls the view so that the scene point is centred.
    virtual void centerOn(const QPointF& pos) = 0;
    /// @{
    /// QGraphicsView's mappings between view pixels and scene coordinates.
    virtual QPolygonF mapToScene(const QRect& rect) const = 0;
    virtual QPointF mapToScene(const QPoint& point) const = 0;
    virtual QPolygon mapFromScene(const QRectF& rect) const = 0;
    virtual QPoint mapFromScene(const QPointF& point) const = 0;
    /// @}
    /// QGraphicsView::ScrollHandDrag makes presses pan, with panStarted() and panFinished().
    virtual void setDragMode(QGraphicsView::DragMode mode) = 0;
    /// @{
    /// QGraphicsView's interactive flag: whether the view passes input on to the scene.
    virtual bool isInteractive() const = 0;
    virtual void setInteractive(bool interactive) = 0;
    /// @}
    /// Paints the view into the painter, which stays the caller's.
    virtual void render(QPainter* painter) = 0;
    /// The items of the view's scene, owned by the scene.
    virtual QList<QGraphicsItem*> items() const = 0;
    /// @{
    /// The view's widget event handlers, for hosts that feed a never-shown view their input
    /// (positions in the view's pixels). The events are borrowed.
    virtual void mousePressEvent(QMouseEvent* event) = 0;
    virtual void mouseMoveEvent(QMouseEvent* event) = 0;
    virtual void mouseReleaseEvent(QMouseEvent* event) = 0;
    virtual void mouseDoubleClickEvent(QMouseEvent* event) = 0;
    virtual void keyPressEvent(QKeyEvent* event) = 0;
    virtual void keyReleaseEvent(QKeyEvent* event) = 0;
    virtual bool viewportEvent(QEvent* event) = 0;
    virtual void enterEvent(QEnterEvent* event) = 0;
    virtual void leaveEvent(QEvent* event) = 0;
    /// @}
    /// Whether the borrowed view is the one behind this interface.
    virtual bool hasView(const QGraphicsView* view) const = 0;
    /// The transform from scene coordinates to viewport pixels.
    virtual QTransform viewportTransform() const = 0;
    /// QGraphicsView::setTransform(): zoom and rotation of the view.
    virtual void setTransform(const QTransform& matrix, bool combine) = 0;
    /// Schedules a repaint of the view.
    virtual void update() = 0;

Q_SIGNALS:
    GUICORE_GRAPHICS_VIEW_EXTRA_SIGNALS
    /// After every resize() through this interface, with the rectangle (0, 0, width, height).
    void resized(const QRectF& size);
};
