#pragma once

#include <guicore/graphics/items/CustomGraphicsPointerEvents.h>
#include <guicore/guicore_export.h>
#include <guicore/style/DevicePixelRatio.h>

#include <QGraphicsTextItem>

class QKeyEvent;

/// A one-line annotation of at most 256 characters that the user types in place.
///
/// Drawn in the measurement label font at constant screen size. A left click is reported through
/// leftClicked and does not start editing by itself: the owner decides with setEditing. Line
/// breaks never enter the text: Return and Enter are swallowed, pasted breaks become blanks.
class GUICORE_EXPORT CustomGraphicsTextItem
    : public CustomGraphicsPointerEvents<CustomGraphicsTextItem, QGraphicsTextItem>,
      public DevicePixelRatio::Listener
{
    Q_OBJECT
    Q_DISABLE_COPY(CustomGraphicsTextItem)

public:
    /// The most characters the user can type into the item.
    static constexpr int maximumLength = 256;

    /// A non-null parent item owns the item.
    explicit CustomGraphicsTextItem(QGraphicsItem* parent = nullptr);
    ~CustomGraphicsTextItem() override;

    /// True while the user edits the text.
    bool isEditing() const { return editing; }
    /// On: the text becomes editable, the item selected and its whole text selected. Off: the
    /// item deselected, not editable, without selection and without focus.
    void setEditing(const bool& edit);

    /// A press handed over by the scene; underMouse says whether the item is the one under the
    /// pointer. Presses outside the item's shape, or on a hidden or disabled item, are ignored,
    /// so a press elsewhere in the scene does not end editing: the owner does that. A press on
    /// the item that is not a left press under the mouse ends editing. The event is borrowed.
    void mousePressEventUnderMouse(QGraphicsSceneMouseEvent* event, bool underMouse);

    /// The graphics item's position, for callers that hold the item as a QObject.
    void setPos(const QPointF& pos);
    using QGraphicsItem::setPos;

    /// The drawn text's box, divided by the first view's zoom: the item ignores the view's
    /// transformations, so this is the text's area in scene units. Without a view, unscaled.
    QPainterPath shape() const override;
    /// Draws the caret line while the item is new and empty; the painter is borrowed.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
        QWidget* widget = nullptr) override;

    // Event handlers; the events are borrowed. Releases and hover events are reported as every
    // overlay item reports them (hover events only once the owner accepts them).
    /// @{
    /// Keys edit the text while editing (the scene hands them to every text item); Escape ends the
    /// editing. The events are borrowed.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    /// @}
    /// Reported only while editing.
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;

    void devicePixelRatioChanged() override;

Q_SIGNALS:
    GUICORE_OVERLAY_POINTER_SIGNALS
    /// The user changed the text.
    void textChanged(QString newText);

private Q_SLOTS:
    void reformatUpdatedText(int position, int charsRemoved, int charsAdded);

private:
    static QFont createFont();

    bool editing = false;
    bool untouched = true;
};
