#include <guicore/utility/widgets/NoLeadingZeroValidator.h>
#include <guicore/utility/widgets/NullProgressUpdater.h>
#include <guicore/utility/widgets/ProgressUpdater.h>
#include <guicore/utility/widgets/Slider.h>
#include <guicore/utility/widgets/StringOperations.h>
#include <guicore/utility/widgets/WarningLabelProperty.h>

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace {

// Counts key presses that reach it, to see which keys a child slider lets through.
class KeyCatcher : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
};

// Queues a call that only runs when pending events are processed.
void queueCall(QObject* context, int* counter)
{
    QMetaObject::invokeMethod(
        context, [counter] { ++*counter; }, Qt::QueuedConnection);
}

} // namespace

class tst_SmallWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void determineSeparator_data();
    void determineSeparator();
    void compareNames();

    void noLeadingZeroInLineEdit_data();
    void noLeadingZeroInLineEdit();

    void warningLabelDefaultsAndProperties();
    void warningLabelSignalsOnlyOnChange();

    void sliderJumpsToClick_data();
    void sliderJumpsToClick();
    void sliderIgnoresDisabledKeys();

    void progressUpdaterThrottles();
    void nullProgressUpdaterDoesNothing();
};

void tst_SmallWidgets::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
}

void tst_SmallWidgets::determineSeparator_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QChar>("separator");

    QTest::newRow("dots") << "dd.MM.yyyy" << QChar('.');
    QTest::newRow("slash") << "d/M/yy" << QChar('/');
    QTest::newRow("dash") << "yyyy-MM-dd" << QChar('-');
    QTest::newRow("blank") << "dd MM yyyy" << QChar(' ');
    QTest::newRow("first one wins") << "dd/MM.yyyy" << QChar('/');
    QTest::newRow("none") << "ddMMyyyy" << QChar();
    QTest::newRow("other punctuation") << "dd:MM:yyyy" << QChar();
    QTest::newRow("empty") << "" << QChar();
}

void tst_SmallWidgets::determineSeparator()
{
    QFETCH(QString, text);
    QFETCH(QChar, separator);
    QCOMPARE(StringOperations::determineSeparator(text), separator);
}

void tst_SmallWidgets::compareNames()
{
    QVERIFY(StringOperations::compareFullNamesFuzzy("Doe^John", "doe john"));
    QVERIFY(StringOperations::compareFullNamesFuzzy("  DOE ^ JOHN  ", "Doe^John"));
    QVERIFY(StringOperations::compareFullNamesFuzzy("Anna Maria^Smith", "annamaria smith"));
    QVERIFY(!StringOperations::compareFullNamesFuzzy("Doe^John", "Doe^Jane"));
    QVERIFY(!StringOperations::compareFullNamesFuzzy("Doe-John", "Doe John"));

    QCOMPARE(StringOperations::localeAwareCompare("abc", "ABC", Qt::CaseInsensitive), 0);
    QVERIFY(StringOperations::localeAwareCompare("abc", "ABC", Qt::CaseSensitive) != 0);
    QVERIFY(StringOperations::localeAwareCompare("apple", "Banana", Qt::CaseInsensitive) < 0);
}

void tst_SmallWidgets::noLeadingZeroInLineEdit_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");

    QTest::newRow("zero alone") << 99 << QString("0") << QString("1");
    QTest::newRow("zero then digit, single digit range") << 9 << QString("05") << QString("1");
    QTest::newRow("zero then digit") << 99 << QString("05") << QString("15");
    QTest::newRow("zero inside") << 999 << QString("205") << QString("205");
    QTest::newRow("plain number") << 99 << QString("42") << QString("42");
}

void tst_SmallWidgets::noLeadingZeroInLineEdit()
{
    QFETCH(int, top);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QLineEdit edit;
    edit.setValidator(new NoLeadingZeroValidator(0, top, &edit));
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QTest::keyClicks(&edit, typed);
    QCOMPARE(edit.text(), shown);

    // Pasted at once, a leading zero turns the whole text into "1".
    edit.clear();
    edit.insert(typed);
    QCOMPARE(edit.text(), typed.startsWith('0') ? QString("1") : typed);
}

void tst_SmallWidgets::warningLabelDefaultsAndProperties()
{
    WarningLabelProperty label("Disk almost full");
    QCOMPARE(label.getIconPath(), QString());
    QCOMPARE(label.getWarningColor(), QColor(Qt::red));
    QCOMPARE(label.getWarningFontSize(), 14u);
    QVERIFY(!label.isVisible());

    // QML sees the values under its own property names.
    QVERIFY(label.setProperty("warning_text", "Low memory"));
    QVERIFY(label.setProperty("warning_icon", ":/icons/warning.svg"));
    QVERIFY(label.setProperty("warning_color", QColor(Qt::yellow)));
    QVERIFY(label.setProperty("warning_font_size", 18u));
    QVERIFY(label.setProperty("label_visible", true));
    QCOMPARE(label.getText(), QString("Low memory"));
    QCOMPARE(label.getIconPath(), QString(":/icons/warning.svg"));
    QCOMPARE(label.property("warning_color").value<QColor>(), QColor(Qt::yellow));
    QCOMPARE(label.getWarningFontSize(), 18u);
    QVERIFY(label.property("label_visible").toBool());
}

void tst_SmallWidgets::warningLabelSignalsOnlyOnChange()
{
    WarningLabelProperty label("text");
    QStringList log;
    connect(&label, &WarningLabelProperty::textChanged, this, [&] { log << "text"; });
    connect(&label, &WarningLabelProperty::iconPathChanged, this, [&] { log << "icon"; });
    connect(&label, &WarningLabelProperty::colorChanged, this, [&] { log << "color"; });
    connect(&label, &WarningLabelProperty::fontChanged, this, [&] { log << "font"; });
    connect(&label, &WarningLabelProperty::labelVisibleChanged, this, [&] { log << "visible"; });

    label.setText("text");
    label.setIconPath(QString());
    label.setWarningColor(QColor("red"));
    label.setWarningFontSize(14);
    label.setVisible(false);
    QVERIFY(log.isEmpty());

    label.setWarningColor(Qt::blue);
    label.setWarningColor(Qt::blue);
    label.setVisible(true);
    label.setText("other");
    label.setWarningFontSize(10);
    label.setIconPath("icon.png");
    label.setIconPath("icon.png");
    QCOMPARE(log, (QStringList {"color", "visible", "text", "font", "icon"}));
}

void tst_SmallWidgets::sliderJumpsToClick_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<int>("expected");

    QTest::newRow("horizontal three quarters") << Qt::Horizontal << 0.75 << 75;
    QTest::newRow("horizontal start") << Qt::Horizontal << 0.0 << 0;
    QTest::newRow("vertical near top") << Qt::Vertical << 0.25 << 75;
    QTest::newRow("vertical near bottom") << Qt::Vertical << 0.9 << 10;
}

void tst_SmallWidgets::sliderJumpsToClick()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(double, fraction);
    QFETCH(int, expected);
    Slider slider(orientation);
    slider.setRange(0, 100);
    slider.setValue(40);
    slider.resize(orientation == Qt::Horizontal ? QSize(200, 30) : QSize(30, 200));
    slider.show();
    QVERIFY(QTest::qWaitForWindowExposed(&slider));

    const QPoint click = orientation == Qt::Horizontal ? QPoint(int(200 * fraction), 15)
                                                       : QPoint(15, int(200 * fraction));
    QTest::mouseClick(&slider, Qt::LeftButton, {}, click);
    QCOMPARE(slider.value(), expected);
}

void tst_SmallWidgets::sliderIgnoresDisabledKeys()
{
    KeyCatcher parent;
    parent.resize(220, 50);
    auto* slider = new Slider(Qt::Horizontal, &parent);
    slider->setGeometry(10, 10, 200, 30);
    slider->setRange(0, 10);
    slider->setValue(5);
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));

    slider->disableKeys({Qt::Key_Right, Qt::Key_Left, Qt::Key_Right});
    slider->disableKey(Qt::Key_Left);
    QTest::keyClick(slider, Qt::Key_Right);
    QTest::keyClick(slider, Qt::Key_Left);
    QCOMPARE(slider->value(), 5);
    // Ignored, so the surrounding widget gets them instead.
    QCOMPARE(parent.keys, (QList<int> {Qt::Key_Right, Qt::Key_Left}));

    QTest::keyClick(slider, Qt::Key_Up);
    QCOMPARE(slider->value(), 6);

    slider->enableAllKeys();
    parent.keys.clear();
    QTest::keyClick(slider, Qt::Key_Right);
    QCOMPARE(slider->value(), 7);
    QVERIFY(parent.keys.isEmpty());
}

void tst_SmallWidgets::progressUpdaterThrottles()
{
    ProgressUpdater updater;
    int delivered = 0;

    queueCall(this, &delivered);
    QElapsedTimer clock;
    clock.start();
    updater.updateProgress("first", 1);
    QCOMPARE(delivered, 1);

    queueCall(this, &delivered);
    QTest::qSleep(5);
    updater.updateProgress("second", 2);
    if (clock.elapsed() >= 20)
        QSKIP("The machine was too slow to call twice within 20 ms");
    QCOMPARE(delivered, 1);

    // qSleep does not process events: only the updater can deliver the queued call.
    QTest::qSleep(25);
    updater.updateProgress("third", 3);
    QCOMPARE(delivered, 2);
}

void tst_SmallWidgets::nullProgressUpdaterDoesNothing()
{
    NullProgressUpdater updater;
    const ProgressUpdater& asBase = updater;
    int delivered = 0;
    queueCall(this, &delivered);
    asBase.updateProgress("step", 1);
    QTest::qSleep(25);
    asBase.updateProgress("step", 2);
    QCOMPARE(delivered, 0);
    QCoreApplication::processEvents();
    QCOMPARE(delivered, 1);
}

QTEST_MAIN(tst_SmallWidgets)
#include "tst_smallwidgets.moc"
