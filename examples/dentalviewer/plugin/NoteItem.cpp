#include "NoteItem.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>

NoteItem::NoteItem(QGraphicsItem* parent)
    : CustomGraphicsTextItem(parent)
{
    // The library's item takes the focus when it is made; a note takes it when its editing
    // begins, so that keys typed elsewhere never reach it.
    clearFocus();
    connect(document(), &QTextDocument::contentsChanged, this, [this] {
        if (isEditing())
            Q_EMIT edited(toPlainText());
    });
}

void NoteItem::beginEditing(bool selectAll)
{
    setEditing(true);
    // The library's editing takes typed text only; a note is edited like any text field.
    setTextInteractionFlags(Qt::TextEditorInteraction);
    QTextCursor cursor = textCursor();
    if (selectAll)
        cursor.select(QTextCursor::Document);
    else
        cursor.movePosition(QTextCursor::End);
    setTextCursor(cursor);
    setFocus(Qt::OtherFocusReason);
}

void NoteItem::endEditing()
{
    setEditing(false);
}

void NoteItem::typeKey(QKeyEvent* event)
{
    event->accept();
    const int key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key == Qt::Key_Escape || (enter && !event->modifiers().testFlag(Qt::ShiftModifier))) {
        Q_EMIT finished();
        return;
    }
    if (enter) {
        QTextCursor cursor = textCursor();
        cursor.insertText(QStringLiteral("\n"));
        setTextCursor(cursor);
        return;
    }
    const QString typed = event->text();
    const bool adds = !typed.isEmpty() && typed.at(0).isPrint();
    if (adds && toPlainText().size() >= maximumLength && !textCursor().hasSelection())
        return;
    // The stock text editing, past the library item's one-line rules.
    QGraphicsTextItem::keyPressEvent(event);
}

void NoteItem::keyPressEvent(QKeyEvent* event)
{
    if (!isEditing()) {
        event->ignore();
        return;
    }
    typeKey(event);
}

void NoteItem::setBackdrop(const QColor& color)
{
    m_backdrop = color;
    update();
}

void NoteItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    if (m_backdrop.isValid())
        painter->fillRect(boundingRect(), m_backdrop);
    CustomGraphicsTextItem::paint(painter, option, widget);
}
