#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsRectItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/style/StyleManager.h>
#include <guicore/style/StyleManagerDataProvider.h>

#include <settings/SettingsManager.h>

#include "ItemTestSupport.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace itemtest;

namespace {

const QString fontSizeKey = QStringLiteral("labelFontSize");

void setLabelFontSetting(int size)
{
    settings::SettingsManager::manager()->setUserDefault(fontSizeKey, size);
}

QPixmap solidPixmap(int w, int h)
{
    QPixmap pixmap(w, h);
    pixmap.fill(Qt::blue);
    return pixmap;
}

} // namespace

class tst_LabelItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void partsAreNamedAndPlaced();
    void layout_data();
    void layout();
    void fontFromStyleAndSetting();
    void followsSettingChanges();
    void zeroSettingAsymmetry();
    void hitShapeInZoomedView();
    void setVisibleTellsScene();
    void clicksOnPartsReportedByLabel();
    void rendersBoxAndTextWhereLaidOut();
    void paintsHitsAndHoversInEitherScene_data();
    void paintsHitsAndHoversInEitherScene();

private:
    QTemporaryDir configDir;
};

void tst_LabelItem::initTestCase()
{
    // User defaults are stored through QSettings: keep them out of the real configuration.
    QVERIFY(configDir.isValid());
    qputenv("XDG_CONFIG_HOME", configDir.path().toLocal8Bit());
    qRegisterMetaType<QGraphicsSceneMouseEvent*>();
    StyleManager::createManager(StyleManagerDataProvider());
}

void tst_LabelItem::cleanupTestCase()
{
    StyleManager::deleteManager();
}

void tst_LabelItem::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    setLabelFontSetting(12);
}

void tst_LabelItem::cleanup()
{
    setLabelFontSetting(12);
}

void tst_LabelItem::partsAreNamedAndPlaced()
{
    CustomGraphicsLabelItem label(QStringLiteral("ruler"), nullptr, 3.0, true);
    QCOMPARE(label.getBackground()->objectName(), QStringLiteral("ruler_background"));
    QCOMPARE(label.getIcon()->objectName(), QStringLiteral("ruler_icon"));
    QCOMPARE(label.getTextItem()->objectName(), QStringLiteral("ruler_text"));
    QCOMPARE(label.getIcon()->parentItem(), &label);
    QCOMPARE(label.getCustomChildItems(),
        (QList<CustomGraphicsItem*> {label.getBackground(), label.getTextItem()}));
    // Box, icon and text stack in that order; the box is hidden until asked for.
    QVERIFY(label.getBackground()->zValue() < label.getIcon()->zValue());
    QVERIFY(label.getIcon()->zValue() < label.getTextItem()->zValue());
    QVERIFY(!label.getBackground()->isVisible());
    label.fillBackground(true);
    QVERIFY(label.getBackground()->isVisible());
    QVERIFY(label.getTextItem()->hasOutline());
    QVERIFY(!CustomGraphicsLabelItem(QStringLiteral("plain"), nullptr, 0.0, false)
                 .getTextItem()
                 ->hasOutline());
}

void tst_LabelItem::layout_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QSize>("iconSize");
    QTest::addColumn<bool>("wrap");
    QTest::addColumn<QSize>("fixedSize");
    QTest::addColumn<QSizeF>("iconShown");

    QTest::newRow("text, no icon") << "12.5 mm" << QSize() << true << QSize() << QSizeF(0, 0);
    QTest::newRow("text and square icon")
        << "12.5 mm" << QSize(32, 32) << true << QSize() << QSizeF(16, 16);
    QTest::newRow("wide icon keeps aspect")
        << "x" << QSize(40, 20) << true << QSize() << QSizeF(16, 8);
    QTest::newRow("fixed box, no icon")
        << "12.5 mm" << QSize() << false << QSize(50, 20) << QSizeF(0, 0);
    QTest::newRow("fixed box, icon")
        << "a" << QSize(16, 16) << false << QSize(50, 20) << QSizeF(16, 16);
    QTest::newRow("empty text") << QString() << QSize() << true << QSize() << QSizeF(0, 0);
}

void tst_LabelItem::layout()
{
    QFETCH(QString, text);
    QFETCH(QSize, iconSize);
    QFETCH(bool, wrap);
    QFETCH(QSize, fixedSize);
    QFETCH(QSizeF, iconShown);

    CustomGraphicsLabelItem label(QStringLiteral("label"));
    label.setText(text);
    if (iconSize.isValid())
        label.setIcon(solidPixmap(iconSize.width(), iconSize.height()));
    label.wrapSizeToText(wrap);
    if (fixedSize.isValid()) {
        label.setWidth(fixedSize.width());
        label.setHeight(fixedSize.height());
    }

    const qreal iw = iconShown.width();
    const qreal ih = iconShown.height();
    QCOMPARE(label.getIcon()->boundingRect().size(), iconShown);
    QCOMPARE(label.getIcon()->pos(), QPointF(-iw - 3, -ih));
    QCOMPARE(label.getTextItem()->pos(), QPointF(0, 0));

    const QRectF textRect = label.getTextBoundingRect();
    const float tw = float(textRect.width());
    const float th = float(textRect.height());
    QRectF expected(-8 - iw, 5, fixedSize.width(), -fixedSize.height());
    if (wrap)
        expected = QRectF(-8 - iw, 5, tw + 10 + float(iw) + 6, -th - 10);
    QCOMPARE(label.getBackground()->getRect(), expected);
    if (wrap) {
        // The box reaches 8 pixels beyond the text and icon, and from 5 below the baseline to 5
        // above the text.
        const QRectF box = expected.normalized();
        QCOMPARE(box.right(), tw + 8.0);
        QCOMPARE(float(box.top()), -(th + 5.0f));
    }
}

void tst_LabelItem::fontFromStyleAndSetting()
{
    setLabelFontSetting(17);
    CustomGraphicsLabelItem label(QStringLiteral("label"));
    const QFont font = label.getTextItem()->getFont();
    QCOMPARE(font.family(),
        StyleManager::manager().getFontFamilyForQFont(QStringLiteral("@MEASUREMENT_LABEL_FONT")));
    QVERIFY(!font.family().isEmpty());
    QCOMPARE(font.pixelSize(), 17);
    QCOMPARE(font.letterSpacingType(), QFont::PercentageSpacing);
    QCOMPARE(font.letterSpacing(), 110.0);
}

void tst_LabelItem::followsSettingChanges()
{
    CustomGraphicsLabelItem label(QStringLiteral("label"));
    label.setText(QStringLiteral("42 mm"));
    const QRectF boxBefore = label.getBackground()->getRect();
    const qreal widthBefore = label.getTextBoundingRect().width();

    setLabelFontSetting(24);
    QCOMPARE(label.getTextItem()->getFont().pixelSize(), 24);
    QVERIFY(label.getTextBoundingRect().width() > widthBefore);
    // The size change alone does not lay the label out again.
    QCOMPARE(label.getBackground()->getRect(), boxBefore);
    label.setText(QStringLiteral("42 mm "));
    QVERIFY(label.getBackground()->getRect().width() > boxBefore.width());

    label.setFontSize(9);
    QCOMPARE(label.getTextItem()->getFont().pixelSize(), 9);
}

void tst_LabelItem::zeroSettingAsymmetry()
{
    setLabelFontSetting(0);
    CustomGraphicsLabelItem label(QStringLiteral("label"));
    // The constructor applies a lower bound of 1.
    QCOMPARE(label.getTextItem()->getFont().pixelSize(), 1);
    // updateFontSize does not; QFont itself refuses a size of 0 and keeps the one it has.
    setLabelFontSetting(5);
    QCOMPARE(label.getTextItem()->getFont().pixelSize(), 5);
    setLabelFontSetting(0);
    QCOMPARE(label.getTextItem()->getFont().pixelSize(), 5);
}

void tst_LabelItem::hitShapeInZoomedView()
{
    ViewFixture fixture(2.0);
    auto* label = new CustomGraphicsLabelItem(QStringLiteral("label"));
    fixture.scene.addItem(label);
    label->setPos(10, 10);
    label->setText(QStringLiteral("3.4 cm"));
    label->wrapSizeToText(false);
    label->setWidth(60);
    label->setHeight(20);

    // The box is (-8, 5, 60, -20) in pixels: (-4, -7.5) to (26, 2.5) in scene units at 2x.
    QCOMPARE(label->shape().boundingRect(), QRectF(QPointF(-4, -7.5), QPointF(26, 2.5)));
    QCOMPARE(label->getClickableRegion().boundingRect(), label->shape().boundingRect());
    QVERIFY(label->isMouseOver(QPointF(10 + 25, 10 - 7)));
    QVERIFY(!label->isMouseOver(QPointF(10 + 27, 10)));
    QVERIFY(!label->isMouseOver(QPointF(10, 10 + 3)));
    QVERIFY(label->boundingRect().contains(label->shape().boundingRect()));
}

void tst_LabelItem::setVisibleTellsScene()
{
    QGraphicsScene scene;
    auto* label = new CustomGraphicsLabelItem(QStringLiteral("label"));
    label->setText(QStringLiteral("7"));
    scene.addItem(label);
    QSignalSpy changed(&scene, &QGraphicsScene::changed);
    label->setVisible(false);
    QVERIFY(!label->isVisible());
    QCOMPARE(changed.count(), 1);
    const auto rects = changed.at(0).at(0).value<QList<QRectF>>();
    QCOMPARE(rects, QList<QRectF> {label->boundingRect()});
}

void tst_LabelItem::clicksOnPartsReportedByLabel()
{
    ViewFixture fixture;
    auto* label = new CustomGraphicsLabelItem(QStringLiteral("label"));
    fixture.scene.addItem(label);
    label->setText(QStringLiteral("MMMM"));
    label->setIcon(solidPixmap(16, 16));
    label->fillBackground(true);
    QSignalSpy left(label, &CustomGraphicsItem::leftClicked);
    QSignalSpy right(label, &CustomGraphicsItem::rightClicked);

    const QRectF text = label->getTextBoundingRect();
    const QPoint onText = fixture.view.mapFromScene(text.center());
    const QPoint onIcon = fixture.view.mapFromScene(QPointF(-11, -8));
    const QPoint outside = fixture.view.mapFromScene(QPointF(-60, 0));
    QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, onText);
    QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, onIcon);
    QTest::mouseClick(fixture.view.viewport(), Qt::RightButton, {}, onText);
    // Nothing takes a press beside the label, and QTest says so.
    QTest::ignoreMessage(
        QtWarningMsg, "Mouse event \"MousePress\" not accepted by receiving widget");
    QTest::mouseClick(fixture.view.viewport(), Qt::LeftButton, {}, outside);
    QCOMPARE(left.count(), 2);
    QCOMPARE(right.count(), 1);
}

void tst_LabelItem::rendersBoxAndTextWhereLaidOut()
{
    ViewFixture fixture(3.0);
    auto* label = new CustomGraphicsLabelItem(QStringLiteral("label"));
    fixture.scene.addItem(label);
    label->setText(QStringLiteral("HHHH"));
    label->fillBackground(true);
    label->setBackgroundBrush(QBrush(Qt::blue));
    label->setBackgroundOutlinePen(Qt::NoPen);
    const QImage image = fixture.render();

    // The label ignores the zoom: its box is laid out in pixels around the origin's pixel.
    const QPoint origin = fixture.origin();
    const QRect box = label->getBackground()->getRect().normalized().toRect().translated(origin);
    const QRgb blue = qRgb(0, 0, 255);
    QCOMPARE(image.pixel(box.left() + 1, box.bottom() - 1), blue);
    QCOMPARE(image.pixel(box.right() - 1, box.top() + 1), blue);
    QVERIFY(image.pixel(box.left() - 2, box.center().y()) != blue);
    QVERIFY(image.pixel(box.right() + 2, box.center().y()) != blue);
    QVERIFY(image.pixel(box.center().x(), box.top() - 2) != blue);

    // Yellow glyphs lie inside the text's rectangle above the baseline, none outside it.
    const QRect text = label->getTextBoundingRect().toAlignedRect().translated(origin);
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!isYellow(image.pixel(x, y)))
                continue;
            if (text.adjusted(-1, -1, 1, 1).contains(x, y))
                ++inside;
            else
                ++outside;
        }
    }
    QVERIFY(inside > 20);
    QCOMPARE(outside, 0);
}

void tst_LabelItem::paintsHitsAndHoversInEitherScene_data()
{
    QTest::addColumn<bool>("library");
    QTest::newRow("stock scene, BSP index") << false;
    QTest::newRow("library scene, no index") << true;
}

void tst_LabelItem::paintsHitsAndHoversInEitherScene()
{
    QFETCH(bool, library);
    QScopedPointer<QGraphicsScene> scene(
        library ? new GraphicsSceneExtra : new QGraphicsScene(-500, -500, 1000, 1000));
    QCOMPARE(scene->itemIndexMethod(),
        library ? QGraphicsScene::NoIndex : QGraphicsScene::BspTreeIndex);
    QGraphicsView view(scene.data());
    view.setFrameShape(QFrame::NoFrame);
    view.resize(300, 200);
    view.setSceneRect(-150, -100, 300, 200);
    auto* label = new CustomGraphicsLabelItem(QStringLiteral("label"));
    label->setText(QStringLiteral("HHHH"));
    label->fillBackground(true);
    label->setBackgroundBrush(QBrush(Qt::blue));
    label->setBackgroundOutlinePen(Qt::NoPen);
    label->setAcceptHoverEvents(true);
    scene->addItem(label);
    label->setPos(40, 30);

    // Before any hit test the bounds are the box as laid out: it runs upwards from the baseline.
    const QRectF box = label->getBackground()->getRect();
    QVERIFY(box.height() < 0);
    QCOMPARE(label->boundingRect(), box);

    QImage image(view.viewport()->size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        view.render(&painter, QRectF(), view.viewport()->rect());
    }
    // Left of the text, inside the box: only the box paints there.
    const QPointF inBox = label->mapToScene(QPointF(box.left() + 2, -2));
    QCOMPARE(image.pixel(view.mapFromScene(inBox)), qRgb(0, 0, 255));

    QVERIFY(scene->items(inBox).contains(label));
    QVERIFY(!scene->items(label->mapToScene(QPointF(box.left() - 4, -2))).contains(label));

    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy entered(label, &CustomGraphicsItem::mouseHoverEnter);
    QSignalSpy left(label, &CustomGraphicsItem::mouseHoverLeave);
    QTest::mouseMove(view.viewport(), view.mapFromScene(label->mapToScene(QPointF(-100, -2))));
    QCOMPARE(entered.count(), 0);
    QTest::mouseMove(view.viewport(), view.mapFromScene(inBox));
    QCOMPARE(entered.count(), 1);
    QTest::mouseMove(view.viewport(), view.mapFromScene(label->mapToScene(QPointF(0, 40))));
    QCOMPARE(left.count(), 1);
}

QTEST_MAIN(tst_LabelItem)
#include "tst_labelitem.moc"
