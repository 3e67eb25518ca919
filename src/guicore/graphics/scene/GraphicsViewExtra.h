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
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    // Both drive a view that is never shown: the wrapper hands it the Quick item's input, the
    // renderer sizes it to the framebuffer.
    friend class GraphicsViewExtraWrapper;
    friend class GraphicsViewRenderer;

    void notifyChanged();

    Usage usage;
};
