#pragma once

#include <guicore/graphics/items/CustomGraphicsTextItem.h>

#include <QColor>

class QKeyEvent;

// A text note on an image, edited in place. The library's text item is a one-line annotation
// whose editing takes typed text only: Return is swallowed, line breaks become blanks and the
// caret keys are not its business. A note is more: while it is edited the viewer hands it every
// key, the caret keys and Home/End move the caret, Return ends the editing, Shift+Return starts
// a new line, and Escape ends the editing as well.
class NoteItem : public CustomGraphicsTextItem
{
    Q_OBJECT

public:
    static constexpr int maximumLength = 1000;

    explicit NoteItem(QGraphicsItem* parent = nullptr);

    // Editing with the caret keys and the mouse as in any text field; the whole text selected, so
    // that typing replaces it and End or a click keeps it.
    void beginEditing(bool selectAll);
    void endEditing();

    // A key of the person editing the note; Return, Enter without Shift and Escape emit
    // finished(). The event is borrowed.
    void typeKey(QKeyEvent* event);

    // Painted behind the text so that the note stays readable over bright anatomy.
    void setBackdrop(const QColor& color);
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
        QWidget* widget = nullptr) override;

    // The scene offers every key to every text item, whether it is edited or not: a note that is
    // not being edited leaves them alone.
    void keyPressEvent(QKeyEvent* event) override;

Q_SIGNALS:
    // The text changed while the note was edited.
    void edited(const QString& text);
    // The person ended the editing with a key; the viewer closes the note.
    void finished();

private:
    QColor m_backdrop;
};
