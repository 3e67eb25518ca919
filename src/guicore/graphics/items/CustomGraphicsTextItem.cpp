#include "CustomGraphicsTextItem.h"

#include "ItemViewZoom_p.h"

#include <guicore/style/StyleManager.h>

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

CustomGraphicsTextItem::CustomGraphicsTextItem(QGraphicsItem* parent)
    : CustomGraphicsPointerEvents(parent)
{
    DevicePixelRatio::registerListener(this);
    setFont(createFont());
    setDefaultTextColor(Qt::yellow);
    setFlag(ItemIsMovable, true);
    setFlag(ItemIsSelectable, true);
    setFlag(ItemIsFocusable, true);
    setFlag(ItemIgnoresTransformations, true);
    setCursor(Qt::IBeamCursor);
    setTextWidth(-1);
    setAcceptHoverEvents(false);
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::Document);
    setTextCursor(cursor);
    setFocus(Qt::OtherFocusReason);
}

CustomGraphicsTextItem::~CustomGraphicsTextItem()
{
    DevicePixelRatio::unregisterListener(this);
}

QFont CustomGraphicsTextItem::createFont()
{
    StyleManager& style = StyleManager::manager();
    QFont font;
    font.setFamily(style.getFontFamilyForQFont(QStringLiteral("@MEASUREMENT_LABEL_FONT")));
    const int pixelSize
        = static_cast<int>(style.getFontSize(QStringLiteral("@MEASUREMENT_LABEL_FONT_SIZE_3D"))
            * DevicePixelRatio::value());
    // QFont refuses sizes below 1 with a warning; a missing style size keeps the default.
    if (pixelSize > 0)
        font.setPixelSize(pixelSize);
    return font;
}

void CustomGraphicsTextItem::setEditing(const bool& edit)
{
    if (edit == editing)
        return;
    editing = edit;
    if (editing) {
        setTextInteractionFlags(Qt::TextEditable);
        setSelected(true);
        QTextCursor cursor = textCursor();
        cursor.select(QTextCursor::Document);
        setTextCursor(cursor);
    } else {
        setSelected(false);
        setTextInteractionFlags(Qt::NoTextInteraction);
        QTextCursor cursor = textCursor();
        cursor.clearSelection();
        setTextCursor(cursor);
        clearFocus();
    }
}

void CustomGraphicsTextItem::mousePressEventUnderMouse(
    QGraphicsSceneMouseEvent* event, bool underMouse)
{
    if (!mapToScene(shape()).contains(event->scenePos()) || !isVisible() || !isEnabled())
        return;
    QGraphicsTextItem::mousePressEvent(event);
    if (event->button() != Qt::LeftButton || !underMouse) {
        setEditing(false);
    } else {
        if (!toPlainText().isEmpty() && editing)
            QGraphicsTextItem::mouseDoubleClickEvent(event);
        event->accept();
        Q_EMIT leftClicked(event);
    }
    if (event->button() == Qt::RightButton) {
        event->accept();
        Q_EMIT rightClicked(event);
    }
}

void CustomGraphicsTextItem::setPos(const QPointF& pos)
{
    QGraphicsTextItem::setPos(pos);
}

QPainterPath CustomGraphicsTextItem::shape() const
{
    const double s = 1.0 / firstViewZoom(*this);
    const QRectF r = QGraphicsTextItem::shape().boundingRect().normalized();
    QPainterPath path;
    path.addRect(
        QRectF(QPointF(r.left() * s, r.top() * s), QPointF(r.right() * s, r.bottom() * s)));
    return path;
}

void CustomGraphicsTextItem::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    if (toPlainText().isEmpty() && untouched) {
        // A caret that shows where typing will go until the first change of the text.
        painter->setPen(QPen(Qt::yellow));
        const QRectF r = option->rect;
        painter->drawLine(r.topLeft(), r.bottomLeft());
        return;
    }
    QGraphicsTextItem::paint(painter, option, widget);
}

void CustomGraphicsTextItem::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter
        && (toPlainText().size() < maximumLength || key == Qt::Key_Backspace)) {
        connect(document(), &QTextDocument::contentsChange, this,
            &CustomGraphicsTextItem::reformatUpdatedText, Qt::UniqueConnection);
        QGraphicsTextItem::keyPressEvent(event);
    }
    event->accept();
}

void CustomGraphicsTextItem::keyReleaseEvent(QKeyEvent* event)
{
    QGraphicsTextItem::keyReleaseEvent(event);
}

void CustomGraphicsTextItem::reformatUpdatedText(int, int charsRemoved, int)
{
    QTextDocument* doc = document();
    disconnect(
        doc, &QTextDocument::contentsChange, this, &CustomGraphicsTextItem::reformatUpdatedText);

    QString text = doc->toPlainText();
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    text.replace(QStringLiteral("\n"), QStringLiteral(" "));
    if (text.isEmpty() && charsRemoved == 0)
        return;
    if (text.size() > maximumLength)
        text.truncate(maximumLength);

    // Prepared but deliberately not applied: the text keeps the item's default font and colour.
    QTextCharFormat format;
    format.setFont(font());
    format.setForeground(QBrush(Qt::yellow, Qt::SolidPattern));
    Q_UNUSED(format);

    doc->setPlainText(text);
    doc->setDefaultCursorMoveStyle(Qt::LogicalMoveStyle);
    QTextCursor cursor(doc);
    cursor.beginEditBlock();
    cursor.movePosition(QTextCursor::End);
    cursor.endEditBlock();

    Q_EMIT textChanged(text);
    untouched = false;
}

void CustomGraphicsTextItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    if (editing)
        Q_EMIT mouseMoved(event);
}

void CustomGraphicsTextItem::devicePixelRatioChanged()
{
    update();
}
