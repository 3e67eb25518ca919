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
class GUICORE_EXPORT QuickGraphicsSceneItem : public QQuickFramebufferObject
{
    Q_OBJECT
    Q_DISABLE_COPY(QuickGraphicsSceneItem)

public:
    explicit QuickGraphicsSceneItem(QQuickItem* parent = nullptr);
    ~QuickGraphicsSceneItem() override;

    /// The item's scene, owned by the item.
    GraphicsSceneExtra* getGraphicsScene() const;
    /// The item's view, owned by the item.
    GraphicsViewExtraInterface* getGraphicsView() const;

    void setViewerTag(const QString& tag);

    /// Makes the type known to QML; the application calls it once before loading QML.
    static void registerQMLType();

    /// Ownership of the renderer passes to the caller (the scene graph).
    Renderer* createRenderer() const override;

Q_SIGNALS:
    void mouseMoved();
    void lateUpdate();
    void sceneChanged();

public Q_SLOTS:
    void sync();
    void updateRegion(QList<QRectF> region);
    void doLateUpdate();
    /// Does nothing for a null window; the item does not own the window.
    void handleWindowChanged(QQuickWindow* window);

protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

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
