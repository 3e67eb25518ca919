#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QPointer>
#include <QQuickFramebufferObject>
#include <QRectF>

#include <memory>

class GraphicsSceneExtra;
class GraphicsViewExtra;
class GraphicsViewExtraInterface;
class GraphicsViewExtraWrapper;
class QQuickWindow;

/// Shows and drives a GraphicsSceneExtra inside a QML user interface: the item owns the scene and
/// a never-shown GraphicsViewExtra on it, paints that view into a framebuffer object on the render
/// thread, and turns its mouse, hover, wheel and key events into the view's widget events, scaled
/// to device pixels. Available to QML as "QuickGraphicsSceneItem" 1.0 in
/// "com.korvani.qmlcomponents" after registerQMLType().
///
/// Threads: the item, scene and view live on the GUI thread; the renderer runs on the Quick
/// render thread while the GUI thread is blocked in synchronisation and only reads the view.
/// Scene coordinates are those of the scene; the view's pixels are device pixels.
class GUICORE_EXPORT QuickGraphicsSceneItem : public QQuickFramebufferObject
{
    Q_OBJECT
    Q_DISABLE_COPY(QuickGraphicsSceneItem)

public:
    /// Makes the scene (transparent background, so QML content behind shows through), the view on
    /// it and the wrapper; accepts all mouse buttons and hover events.
    explicit QuickGraphicsSceneItem(QQuickItem* parent = nullptr);
    ~QuickGraphicsSceneItem() override;

    /// The item's scene, owned by the item.
    GraphicsSceneExtra* getGraphicsScene() const;
    /// The item's view, owned by the item.
    GraphicsViewExtraInterface* getGraphicsView() const;

    /// GraphicsSceneExtra::setViewerTag() of the item's scene.
    void setViewerTag(const QString& tag);

    /// Makes the type known to QML; the application calls it once before loading QML.
    static void registerQMLType();

    /// Ownership of the renderer passes to the caller (the scene graph).
    Renderer* createRenderer() const override;

Q_SIGNALS:
    /// After every mouse move forwarded to the view.
    void mouseMoved();
    /// Internal hand-over from sync() to doLateUpdate(), queued; not for applications.
    void lateUpdate();
    /// Declared for QML bindings; the item itself repaints on the view's sceneChanged().
    void sceneChanged();

public Q_SLOTS:
    /// Called when the window's size changes: schedules one doLateUpdate() however many size
    /// signals arrive.
    void sync();
    /// Repaints the whole item whatever region the scene reports.
    void updateRegion(QList<QRectF> region);
    /// Fits the scene rectangle into the view (keeping the aspect ratio) without the fit counting
    /// as interaction, then emits the view's two notifications.
    void doLateUpdate();
    /// Does nothing for a null window; the item does not own the window.
    void handleWindowChanged(QQuickWindow* window);

protected:
    /// The framebuffer texture over the item's bounding rectangle, mirrored vertically.
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

    /// @{
    /// Passed to the view as a new event with every position multiplied by the device pixel ratio
    /// (DevicePixelRatio::value()): item pixels become the view's device pixels. A press is
    /// accepted, so the item becomes the mouse grabber.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// @}
    /// Sent to the scene as a scene wheel event at the scaled position; the delta is unchanged.
    void wheelEvent(QWheelEvent* event) override;
    /// @{
    /// Passed to the view (and, for moves and leaves, to the scene as scene hover events) at the
    /// scaled position, so the overlay items' hover highlighting works inside QML.
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    /// @}
    /// @{
    /// Passed to the view unchanged; the item needs the active focus to get keys.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    /// @}

private:
    void forwardHover(QHoverEvent* event, bool leave);

    // Destroyed in reverse order: view, then wrapper, then scene.
    std::unique_ptr<GraphicsSceneExtra> scene;
    std::unique_ptr<GraphicsViewExtraWrapper> viewWrapper;
    std::unique_ptr<GraphicsViewExtra> view;

    /// The window whose size changes the item follows; a window change drops the old links.
    QPointer<QQuickWindow> connectedWindow;
    /// Several size signals of one resize lead to one fit.
    bool lateUpdatePending = false;
};
