#include "GraphicsViewRenderer.h"

#include "GraphicsViewExtra.h"

#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFramebufferObjectFormat>
#include <QOpenGLFunctions>
#include <QOpenGLPaintDevice>
#include <QPainter>
#include <QQuickOpenGLUtils>
#include <QResizeEvent>

GraphicsViewRenderer::GraphicsViewRenderer(GraphicsViewExtra* view)
    : view(view)
{
}

GraphicsViewRenderer::~GraphicsViewRenderer() = default;

QOpenGLFramebufferObject* GraphicsViewRenderer::createFramebufferObject(const QSize& size)
{
    QOpenGLFramebufferObjectFormat format;
    format.setSamples(16);
    format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);

    // The view is never shown, so a resize alone would stay pending; delivering the resize event
    // lays out its viewport, which the fit and the rendering measure.
    const QSize oldSize = view->size();
    view->resize(size);
    QResizeEvent resizeEvent(size, oldSize);
    view->event(&resizeEvent);

    const bool interactive = view->isInteractive();
    view->setInteractive(false);
    view->fitInView(view->sceneRect(), Qt::KeepAspectRatio);
    view->setInteractive(interactive);

    return new QOpenGLFramebufferObject(size, format);
}

void GraphicsViewRenderer::render()
{
    const QSize size = view->size();
    QOpenGLPaintDevice device(size);
    QPainter painter(&device);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);

    painter.beginNativePainting();
    QOpenGLFunctions* gl = QOpenGLContext::currentContext()->functions();
    gl->glViewport(0, 0, size.width(), size.height());
    gl->glClearColor(0, 0, 0, 0);
    gl->glClearDepthf(1.0f);
    gl->glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    painter.endNativePainting();

    view->QGraphicsView::render(&painter, QRectF(), QRect(), Qt::KeepAspectRatio);
    painter.end();

    QQuickOpenGLUtils::resetOpenGLState();
}
