#pragma once

#include <guicore/graphics/scene/GraphicsViewExtraInterface.h>
#include <guicore/guicore_export.h>

class GraphicsViewExtra;

/// GraphicsViewExtraInterface over one GraphicsViewExtra: every operation goes to the view's
/// operation of the same name, including its protected widget event handlers, so that a host
/// that never shows the view (a Quick item) can feed it input.
class GUICORE_EXPORT GraphicsViewExtraWrapper : public GraphicsViewExtraInterface
{
    Q_OBJECT
    Q_DISABLE_COPY(GraphicsViewExtraWrapper)

public:
    /// Does not take ownership of the view, which must outlive the wrapper.
    explicit GraphicsViewExtraWrapper(GraphicsViewExtra* view, QObject* parent = nullptr);
    ~GraphicsViewExtraWrapper() override;

    /// Fits without letting the fit reach the scene as interaction; the interactive state is
    /// restored afterwards.
    void fitInView(const QRectF& rect, Qt::AspectRatioMode mode) override;
    QPointF getVisibleSceneCenter() const override;
    QSize size() const override;
    QRect rect() const override;
    QWidget* viewport() const override;
    QGraphicsScene* scene() const override;
    /// The viewport's rect(), or an empty rectangle without a viewport.
    QRect viewportRect() const override;
    /// The viewport's geometry, or an empty rectangle without a viewport.
    QRect viewportGeometry() const override;
    /// Both resizes emit resized() with the new size afterwards.
    void resize(int width, int height) override;
    void resize(const QSize& size) override;
    void centerOn(const QPointF& pos) override;
    QPolygonF mapToScene(const QRect& rect) const override;
    QPointF mapToScene(const QPoint& point) const override;
    QPolygon mapFromScene(const QRectF& rect) const override;
    QPoint mapFromScene(const QPointF& point) const override;
    void setDragMode(QGraphicsView::DragMode mode) override;
    bool isInteractive() const override;
    void setInteractive(bool interactive) override;
    /// The whole viewport into the whole paint device, keeping the aspect ratio.
    void render(QPainter* painter) override;
    QList<QGraphicsItem*> items() const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool hasView(const QGraphicsView* view) const override;
    QTransform viewportTransform() const override;
    void setTransform(const QTransform& matrix, bool combine) override;
    void update() override;

    /// The wrapped view, not owned.
    GraphicsViewExtra* getView() const { return view; }

private:
    GraphicsViewExtra* view;
};
