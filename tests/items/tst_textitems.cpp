#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsSimpleTextItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include "ItemTestSupport.h"

#include <QClipboard>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

using namespace itemtest;

namespace {

bool isDark(QRgb p)
{
    return qGray(p) < 100;
}

bool sendKey(QGraphicsScene& scene, QGraphicsItem* item, int key, const QString& text = QString(),
    Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    event.ignore();
    scene.sendEvent(item, &event);
    return event.isAccepted();
}

void typeText(QGraphicsScene& scene, QGraphicsItem* item, const QString& text)
{
    for (QChar c : text)
        sendKey(scene, item, c.unicode(), QString(c));
}

void moveCursorToEnd(CustomGraphicsTextItem* item)
{
    QTextCursor cursor = item->textCursor();
    cursor.movePosition(QTextCursor::End);
    item->setTextCursor(cursor);
}

} // namespace

class tst_TextItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void typingReportsChanges();
    void lengthLimitedButBackspaceWorks();
    void pastedBreaksBecomeBlanksAndLongPasteIsCut();
    void emptyItemShowsCaretUntilFirstChange();
    void pressUnderMouse_data();
    void pressUnderMouse();
    void moveReportedOnlyWhileEditing();
    void shapeFollowsZoom();

    void simpleTextCentring_data();
    void simpleTextCentring();
    void simpleTextClicks_data();
    void simpleTextClicks();

    void outlineTextChildrenAndRendering();
};

void tst_TextItems::initTestCase()
{
    qRegisterMetaType<QGraphicsSceneMouseEvent*>();
    StyleManager::createManager(StyleManagerDataProvider());
}

void tst_TextItems::cleanupTestCase()
{
    StyleManager::deleteManager();
}

void tst_TextItems::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
}

void tst_TextItems::typingReportsChanges()
{
    QGraphicsScene scene;
    auto* item = new CustomGraphicsTextItem;
    scene.addItem(item);
    StyleManager& style = StyleManager::manager();
    QCOMPARE(item->font().family(),
        style.getFontFamilyForQFont(QStringLiteral("@MEASUREMENT_LABEL_FONT")));
    QCOMPARE(item->font().pixelSize(),
        style.getFontSize(QStringLiteral("@MEASUREMENT_LABEL_FONT_SIZE_3D")));
    item->setEditing(true);
    QCOMPARE(item->textInteractionFlags(), Qt::TextEditable);
    QSignalSpy changed(item, &CustomGraphicsTextItem::textChanged);

    typeText(scene, item, QStringLiteral("ab"));
    QCOMPARE(item->toPlainText(), QStringLiteral("ab"));
    QCOMPARE(changed.count(), 2);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("a"));
    QCOMPARE(changed.at(1).at(0).toString(), QStringLiteral("ab"));

    // Return and Enter are taken but never break the line.
    QVERIFY(sendKey(scene, item, Qt::Key_Return, QStringLiteral("\r")));
    QVERIFY(sendKey(scene, item, Qt::Key_Enter, QStringLiteral("\r")));
    QCOMPARE(item->toPlainText(), QStringLiteral("ab"));
    QCOMPARE(changed.count(), 2);

    // Typing needs editing switched on by the owner.
    item->setEditing(false);
    QVERIFY(!item->isSelected());
    QVERIFY(!item->textCursor().hasSelection());
    typeText(scene, item, QStringLiteral("c"));
    QCOMPARE(item->toPlainText(), QStringLiteral("ab"));
}

void tst_TextItems::lengthLimitedButBackspaceWorks()
{
    QGraphicsScene scene;
    auto* item = new CustomGraphicsTextItem;
    scene.addItem(item);
    item->setPlainText(QString(255, QLatin1Char('x')));
    item->setEditing(true);
    moveCursorToEnd(item);

    typeText(scene, item, QStringLiteral("y"));
    QCOMPARE(item->toPlainText().size(), 256);
    // Full: further letters are refused but still taken.
    QVERIFY(sendKey(scene, item, Qt::Key_Z, QStringLiteral("z")));
    QCOMPARE(item->toPlainText().size(), 256);
    QVERIFY(!item->toPlainText().contains(QLatin1Char('z')));

    moveCursorToEnd(item);
    sendKey(scene, item, Qt::Key_Backspace);
    QCOMPARE(item->toPlainText().size(), 255);
}

void tst_TextItems::pastedBreaksBecomeBlanksAndLongPasteIsCut()
{
    QGraphicsScene scene;
    auto* item = new CustomGraphicsTextItem;
    scene.addItem(item);
    item->setEditing(true);
    QSignalSpy changed(item, &CustomGraphicsTextItem::textChanged);

    QGuiApplication::clipboard()->setText(QStringLiteral("one\ntwo\r\nthree"));
    sendKey(scene, item, Qt::Key_V, QString(), Qt::ControlModifier);
    QCOMPARE(item->toPlainText(), QStringLiteral("one two three"));
    QCOMPARE(changed.last().at(0).toString(), QStringLiteral("one two three"));
    QCOMPARE(item->document()->blockCount(), 1);

    item->setPlainText(QString());
    QGuiApplication::clipboard()->setText(QString(300, QLatin1Char('q')));
    sendKey(scene, item, Qt::Key_V, QString(), Qt::ControlModifier);
    QCOMPARE(item->toPlainText(), QString(256, QLatin1Char('q')));
}

void tst_TextItems::emptyItemShowsCaretUntilFirstChange()
{
    ViewFixture fixture;
    auto* item = new CustomGraphicsTextItem;
    fixture.scene.addItem(item);
    QImage image = fixture.render();
    const QRect caret = pixelBox(image, isYellow);
    QVERIFY(!caret.isEmpty());
    QVERIFY(caret.width() <= 2);
    QVERIFY(caret.height() >= 10);
    QVERIFY(qAbs(caret.left() - fixture.view.mapFromScene(item->pos()).x()) <= 1);

    item->setEditing(true);
    typeText(fixture.scene, item, QStringLiteral("a"));
    image = fixture.render();
    QVERIFY(pixelBox(image, isYellow).width() > 2);

    moveCursorToEnd(item);
    sendKey(fixture.scene, item, Qt::Key_Backspace);
    QVERIFY(item->toPlainText().isEmpty());
    item->setEditing(false);
    image = fixture.render();
    QVERIFY(pixelBox(image, isYellow).isEmpty());
}

void tst_TextItems::pressUnderMouse_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("underMouse");
    QTest::addColumn<bool>("onItem");
    QTest::addColumn<bool>("editingBefore");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("editingAfter");

    QTest::newRow("left, not editing")
        << Qt::LeftButton << true << true << false << QStringList {"left"} << false;
    QTest::newRow("left, editing")
        << Qt::LeftButton << true << true << true << QStringList {"left"} << true;
    QTest::newRow("left, not under mouse")
        << Qt::LeftButton << false << true << true << QStringList() << false;
    QTest::newRow("right, editing")
        << Qt::RightButton << true << true << true << QStringList {"right"} << false;
    QTest::newRow("middle, editing")
        << Qt::MiddleButton << true << true << true << QStringList() << false;
    QTest::newRow("right, off the item")
        << Qt::RightButton << true << false << true << QStringList() << true;
}

void tst_TextItems::pressUnderMouse()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, underMouse);
    QFETCH(bool, onItem);
    QFETCH(bool, editingBefore);
    QFETCH(QStringList, expected);
    QFETCH(bool, editingAfter);

    ViewFixture fixture;
    auto* item = new CustomGraphicsTextItem;
    fixture.scene.addItem(item);
    item->setPlainText(QStringLiteral("note"));
    item->setEditing(editingBefore);
    QStringList seen;
    connect(item, &CustomGraphicsTextItem::leftClicked, this, [&] { seen << "left"; });
    connect(item, &CustomGraphicsTextItem::rightClicked, this, [&] { seen << "right"; });

    const QPointF onText = item->mapToScene(item->shape().boundingRect().center());
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    fillPress(press, onItem ? onText : QPointF(-100, -100), button, button);
    item->mousePressEventUnderMouse(&press, underMouse);
    QCOMPARE(seen, expected);
    QCOMPARE(item->isEditing(), editingAfter);
    if (!expected.isEmpty())
        QVERIFY(press.isAccepted());

    // A hidden item is never hit.
    item->setVisible(false);
    seen.clear();
    item->mousePressEventUnderMouse(&press, underMouse);
    QVERIFY(seen.isEmpty());
}

void tst_TextItems::moveReportedOnlyWhileEditing()
{
    CustomGraphicsTextItem item;
    QSignalSpy moved(&item, &CustomGraphicsTextItem::mouseMoved);
    QSignalSpy released(&item, &CustomGraphicsTextItem::mouseReleased);
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    QGraphicsSceneMouseEvent release(QEvent::GraphicsSceneMouseRelease);
    item.mouseMoveEvent(&move);
    QCOMPARE(moved.count(), 0);
    item.setEditing(true);
    item.mouseMoveEvent(&move);
    QCOMPARE(moved.count(), 1);
    item.mouseReleaseEvent(&release);
    QCOMPARE(released.count(), 1);
}

void tst_TextItems::shapeFollowsZoom()
{
    ViewFixture fixture(2.0);
    auto* item = new CustomGraphicsTextItem;
    fixture.scene.addItem(item);
    item->setPlainText(QStringLiteral("annotation"));
    const QRectF stock = item->boundingRect();
    QCOMPARE(item->shape().boundingRect().size(), stock.size() / 2.0);
}

void tst_TextItems::simpleTextCentring_data()
{
    QTest::addColumn<bool>("centered");
    QTest::addColumn<bool>("agnostic");
    QTest::addColumn<qreal>("zoom");

    QTest::newRow("centred") << true << false << 1.0;
    QTest::newRow("centred, zoom-agnostic at 3x") << true << true << 3.0;
    QTest::newRow("not centred") << false << false << 1.0;
}

void tst_TextItems::simpleTextCentring()
{
    QFETCH(bool, centered);
    QFETCH(bool, agnostic);
    QFETCH(qreal, zoom);

    ViewFixture fixture(zoom);
    // No descenders: the glyphs' box ends on the baseline.
    auto* item = new CustomGraphicsSimpleTextItem(
        QStringLiteral("simple"), nullptr, QStringLiteral("HEX"), centered);
    QCOMPARE(item->getFont().pixelSize(), 1);
    QFont font;
    font.setPixelSize(40);
    item->setFont(font);
    item->setPen(Qt::NoPen);
    item->setBrush(Qt::black);
    item->setUseZoomAgnostic(agnostic);
    fixture.scene.addItem(item);

    const QImage image = fixture.render();
    const QRect glyphs = pixelBox(image, isDark);
    const QPoint origin = fixture.origin();
    QVERIFY(!glyphs.isEmpty());
    // Drawn at 40 pixels whatever the zoom when zoom-agnostic.
    QVERIFY2(qAbs(glyphs.height() - 29) <= 3, qPrintable(QString::number(glyphs.height())));
    if (centered) {
        // Shifted by half the glyphs' box, which starts at the first glyph's left bearing and
        // ends on the baseline: the box's centre lands that bearing right of the position.
        const QRectF bounds = item->getPainterPath().boundingRect();
        const QPoint expected = origin + QPointF(bounds.left(), bounds.bottom()).toPoint();
        QVERIFY2(qAbs(glyphs.center().x() - expected.x()) <= 1,
            qPrintable(QStringLiteral("%1 vs %2").arg(glyphs.center().x()).arg(expected.x())));
        QVERIFY(qAbs(glyphs.center().y() - expected.y()) <= 1);
        QVERIFY(bounds.left() < 5);
    } else {
        QVERIFY(qAbs(glyphs.left() - origin.x()) <= 4);
        QVERIFY(qAbs(glyphs.bottom() - origin.y()) <= 1);
    }
}

void tst_TextItems::simpleTextClicks_data()
{
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<bool>("onGlyph");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("left") << Qt::MouseButtons(Qt::LeftButton) << true << QStringList {"left"};
    QTest::newRow("right") << Qt::MouseButtons(Qt::RightButton) << true << QStringList {"right"};
    QTest::newRow("both") << (Qt::LeftButton | Qt::RightButton) << true << QStringList();
    QTest::newRow("beside") << Qt::MouseButtons(Qt::LeftButton) << false << QStringList();
}

void tst_TextItems::simpleTextClicks()
{
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(bool, onGlyph);
    QFETCH(QStringList, expected);

    QGraphicsScene scene;
    auto* item = new CustomGraphicsSimpleTextItem(
        QStringLiteral("simple"), nullptr, QStringLiteral("I"), false);
    QFont font;
    font.setPixelSize(40);
    item->setFont(font);
    item->setPen(QPen(Qt::black, 2));
    scene.addItem(item);
    QStringList seen;
    connect(item, &CustomGraphicsItem::leftClicked, this, [&] { seen << "left"; });
    connect(item, &CustomGraphicsItem::rightClicked, this, [&] { seen << "right"; });

    // The clickable region is the stroke of the glyph outline: its left edge is on it.
    const QRectF glyph = item->getPainterPath().boundingRect();
    const QPointF where = onGlyph ? QPointF(glyph.left(), glyph.center().y())
                                  : QPointF(glyph.right() + 20, glyph.center().y());
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    fillPress(press, where, Qt::LeftButton, buttons);
    item->mousePressEvent(&press);
    QCOMPARE(seen, expected);
}

void tst_TextItems::outlineTextChildrenAndRendering()
{
    CustomGraphicsOutlineTextItem plain(
        QStringLiteral("plain"), nullptr, QStringLiteral("a"), false);
    QCOMPARE(plain.getCustomChildItems().size(), 1);
    QCOMPARE(plain.getCustomChildItems().first()->objectName(), QStringLiteral("plain_text"));

    ViewFixture fixture(2.0);
    auto* item = new CustomGraphicsOutlineTextItem(
        QStringLiteral("outlined"), nullptr, QStringLiteral("HHH"), true);
    QStringList names;
    for (CustomGraphicsItem* child : item->getCustomChildItems())
        names << child->objectName();
    names.sort();
    QCOMPARE(names, (QStringList {"outlined_outline", "outlined_text"}));
    QFont font;
    font.setPixelSize(30);
    item->setFont(font);
    item->setTextColor(Qt::yellow);
    item->setOutlineTextColor(Qt::blue);
    item->setOutlineWidth(3);
    QCOMPARE(item->getText(), QStringLiteral("HHH"));
    fixture.scene.addItem(item);

    const QImage image = fixture.render();
    const QRect text = pixelBox(image, isYellow);
    const QRect ring = pixelBox(image, [](QRgb p) { return qBlue(p) > 200 && qRed(p) < 60; });
    QVERIFY(!text.isEmpty());
    // The ring surrounds the glyphs.
    QVERIFY(ring.contains(text));
    QVERIFY(ring.width() > text.width());

    // The text's box: advance wide, ascent above and descent below the baseline.
    const QFontMetricsF metrics(font);
    QCOMPARE(item->textBoundingRect(),
        QRectF(0, -metrics.ascent(), metrics.horizontalAdvance(QStringLiteral("HHH")),
            metrics.ascent() + metrics.descent()));
}

QTEST_MAIN(tst_TextItems)
#include "tst_textitems.moc"
