#pragma once

#include <guicore/graphics/scene/GraphicsViewExtraSignals.h>
#include <guicore/guicore_export.h>

#include <QGraphicsView>
#include <QPoint>
#include <QPointF>

class GraphicsViewExtraWrapper;
class GraphicsViewRenderer;
class QEnterEvent;
class QEvent;
class QGraphicsScene;
class QKeyEvent;
class QMouseEvent;
class QWidget;

/// The view of a GraphicsSceneExtra. It always renders through an OpenGL viewport, hides its
/// scroll bars and reports what the user does as signals; after every input event it emits
/// viewportChanged() and then sceneChanged(), so that overlays and linked viewers can follow.
///
/// Wheel events keep the stock path: a step that no item accepts goes on to the scroll bars,
/// hidden or not, and scrolls the view. An application that zooms on the scene's mouseScrolled()
/// filters the view's wheel events so that the two do not both happen.
class GUICORE_EXPORT GraphicsViewExtra : public QGraphicsView
{
    Q_OBJECT
    Q_DISABLE_COPY(GraphicsViewExtra)

public:
    /// Where the view's image goes; fixed at construction.
    enum Usage {
        /// Never shown as a widget of its own; its image is rendered elsewhere (a Quick item).
        Offscreen = 0,
        /// Shown as an ordinary widget.
        OnScreen = 1,
    };
    Q_ENUM(Usage)

    /// Does not take ownership of the scene; the parent widget owns the view as usual.
    GraphicsViewExtra(Usage usage, QGraphicsScene* scene, QWidget* parent = nullptr);
    ~GraphicsViewExtra() override;

    /// The usage given at construction.
    Usage getUsage() const { return usage; }

    /// For hosts that forward hover moves: only the two notifications.
    void hoverMoveEvent();

    /// The centre of the view's scene rectangle.
    QPointF getVisibleSceneCenter() const;

    /// An offscreen view has no real screen position, so events shown through it get the view
    /// position of their scene point instead; on screen the position is returned unchanged.
    QPoint getFixedScreenPosForMouseEvent(const QPointF& scenePos, const QPoint& screenPos) const;

Q_SIGNALS:
    GUICORE_GRAPHICS_VIEW_EXTRA_SIGNALS

protected:
    /// With both the left and the right button held, the press is withheld: the stock handler does
    /// not run (so neither the scene nor any item sees the second press of the chord) and
    /// leftAndRightMousePressed() is emitted instead. Otherwise the stock handler, then
    /// panStarted() in QGraphicsView::ScrollHandDrag mode.
    void mousePressEvent(QMouseEvent* event) override;
    /// panFinished() first in ScrollHandDrag mode; the stock handler; then mouseReleased() for the
    /// left button or rightMouseReleased() for the right one.
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// The stock handler; mousePositionChanged() only for moves without a button held.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// The stock handler, then the left or right double-click signal with the view position.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// The stock handler, then keyPressed().
    void keyPressEvent(QKeyEvent* event) override;
    /// Releasing Control in ScrollHandDrag mode emits panFinished() first; then the stock handler
    /// and keyReleased().
    void keyReleaseEvent(QKeyEvent* event) override;
    /// @{
    /// The stock handler, then mouseEntered() or mouseLeft(), without the two notifications.
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    /// @}
    /// The stock handler and its result, after the two notifications.
    bool viewportEvent(QEvent* event) override;

private:
    // Both drive a view that is never shown: the wrapper hands it the Quick item's input, the
    // renderer sizes it to the framebuffer.
    friend class GraphicsViewExtraWrapper;
    friend class GraphicsViewRenderer;

    void notifyChanged();

    Usage usage;
};
