#pragma once

#include <guicore/guicore_export.h>

#include <QQuickFramebufferObject>

class GraphicsViewExtra;
class QOpenGLFramebufferObject;

/// Paints a never-shown GraphicsViewExtra into the framebuffer object of a
/// QuickGraphicsSceneItem. Runs on the Quick render thread; it only reads the view, and sizes it
/// while the GUI thread is blocked in synchronisation.
class GUICORE_EXPORT GraphicsViewRenderer : public QQuickFramebufferObject::Renderer
{
public:
    /// Does not take ownership of the view, which the item owns and keeps alive longer.
    explicit GraphicsViewRenderer(GraphicsViewExtra* view);
    ~GraphicsViewRenderer() override;

    /// Clears the framebuffer to transparent and paints the view into it, then resets the OpenGL
    /// state the scene graph expects.
    void render() override;
    /// Sizes the view to the new framebuffer and fits the scene into it; ownership of the
    /// returned framebuffer object passes to the caller.
    QOpenGLFramebufferObject* createFramebufferObject(const QSize& size) override;

private:
    Q_DISABLE_COPY(GraphicsViewRenderer)

    GraphicsViewExtra* view;
};
