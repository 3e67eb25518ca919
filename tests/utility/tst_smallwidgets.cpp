#include <guicore/utility/widgets/NoLeadingZeroValidator.h>
#include <guicore/utility/widgets/NullProgressUpdater.h>
#include <guicore/utility/widgets/ProgressUpdater.h>
#include <guicore/utility/widgets/Slider.h>
#include <guicore/utility/widgets/StringOperations.h>
#include <guicore/utility/widgets/WarningLabelProperty.h>

#include <QtTest>
#include <QtWidgets>

namespace {

// Records the key presses that reach it, to see which keys a child slider lets through.
struct KeyCatcher : QWidget
{
    QList<int> keys;
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
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void stringOperations()
    {
        // The first of "/.- " wins; other punctuation is no separator.
        const std::pair<const char*, QChar> separators[]
            = {{"dd.MM.yyyy", '.'}, {"d/M/yy", '/'}, {"yyyy-MM-dd", '-'}, {"dd MM yyyy", ' '},
                {"dd/MM.yyyy", '/'}, {"ddMMyyyy", QChar()}, {"dd:MM:yyyy", QChar()}, {"", QChar()}};
        for (const auto& [text, separator] : separators)
            QCOMPARE(StringOperations::determineSeparator(text), separator);

        QVERIFY(StringOperations::compareFullNamesFuzzy("Doe^John", "doe john"));
        QVERIFY(StringOperations::compareFullNamesFuzzy("  DOE ^ JOHN  ", "Doe^John"));
        QVERIFY(StringOperations::compareFullNamesFuzzy("Anna Maria^Smith", "annamaria smith"));
        QVERIFY(!StringOperations::compareFullNamesFuzzy("Doe^John", "Doe^Jane"));
        QVERIFY(!StringOperations::compareFullNamesFuzzy("Doe-John", "Doe John"));
        QCOMPARE(StringOperations::localeAwareCompare("abc", "ABC", Qt::CaseInsensitive), 0);
        QVERIFY(StringOperations::localeAwareCompare("abc", "ABC", Qt::CaseSensitive) != 0);
        QVERIFY(StringOperations::localeAwareCompare("apple", "Banana", Qt::CaseInsensitive) < 0);
    }

    void noLeadingZeroInLineEdit()
    {
        const std::tuple<int, const char*, const char*> cases[] = {{99, "0", "1"}, {9, "05", "1"},
            {99, "05", "15"}, {999, "205", "205"}, {99, "42", "42"}};
        for (const auto& [top, typed, shown] : cases) {
            QLineEdit edit;
            edit.setValidator(new NoLeadingZeroValidator(0, top, &edit));
            edit.show();
            QVERIFY(QTest::qWaitForWindowExposed(&edit));
            QTest::keyClicks(&edit, typed);
            QCOMPARE(edit.text(), shown);
            // Pasted at once, a leading zero turns the whole text into "1".
            edit.clear();
            edit.insert(typed);
            QCOMPARE(edit.text(), *typed == '0' ? QString("1") : QString(typed));
        }
    }

    void warningLabelSignalsOnlyOnChange()
    {
        WarningLabelProperty label("text");
        QStringList log;
        connect(&label, &WarningLabelProperty::textChanged, this, [&] { log << "text"; });
        connect(&label, &WarningLabelProperty::iconPathChanged, this, [&] { log << "icon"; });
        connect(&label, &WarningLabelProperty::colorChanged, this, [&] { log << "color"; });
        connect(&label, &WarningLabelProperty::fontChanged, this, [&] { log << "font"; });
        connect(
            &label, &WarningLabelProperty::labelVisibleChanged, this, [&] { log << "visible"; });
        // QML sets the values under its own property names; the defaults change nothing.
        for (const auto& [name, value] : {std::pair<const char*, QVariant> {"warning_text", "text"},
                 {"warning_icon", QString()}, {"warning_color", QColor("red")},
                 {"warning_font_size", 14u}, {"label_visible", false},
                 {"warning_color", QColor(Qt::blue)}, {"warning_color", QColor(Qt::blue)},
                 {"label_visible", true}, {"warning_text", "other"}, {"warning_font_size", 10u},
                 {"warning_icon", "icon.png"}, {"warning_icon", "icon.png"}})
            QVERIFY(label.setProperty(name, value));
        QCOMPARE(log, (QStringList {"color", "visible", "text", "font", "icon"}));
        QCOMPARE(label.getText() + label.getIconPath(), QString("othericon.png"));
        QCOMPARE(label.getWarningColor(), QColor(Qt::blue));
        QVERIFY(label.isVisible() && label.getWarningFontSize() == 10u);
    }

    void sliderJumpsToClickAndPassesDisabledKeysOn()
    {
        KeyCatcher parent;
        parent.resize(240, 200);
        auto* horizontal = new Slider(Qt::Horizontal, &parent);
        horizontal->setGeometry(0, 0, 200, 30);
        auto* vertical = new Slider(Qt::Vertical, &parent);
        vertical->setGeometry(210, 0, 30, 200);
        for (Slider* slider : {horizontal, vertical}) {
            slider->setRange(0, 100);
            slider->setValue(40);
        }
        parent.show();
        QVERIFY(QTest::qWaitForWindowExposed(&parent));
        // A click at pixel `at` of 200 along the slider; the vertical one counts from the top.
        const std::tuple<Slider*, int, int> clicks[]
            = {{horizontal, 150, 75}, {horizontal, 0, 0}, {vertical, 50, 75}, {vertical, 180, 10}};
        for (const auto& [slider, at, expected] : clicks) {
            QTest::mouseClick(
                slider, Qt::LeftButton, {}, slider == horizontal ? QPoint(at, 15) : QPoint(15, at));
            QCOMPARE(slider->value(), expected);
        }

        horizontal->setValue(5);
        horizontal->disableKeys({Qt::Key_Right, Qt::Key_Left, Qt::Key_Right});
        horizontal->disableKey(Qt::Key_Left);
        QTest::keyClick(horizontal, Qt::Key_Right);
        QTest::keyClick(horizontal, Qt::Key_Left);
        QCOMPARE(horizontal->value(), 5);
        // Ignored, so the surrounding widget gets them instead.
        QCOMPARE(parent.keys, (QList<int> {Qt::Key_Right, Qt::Key_Left}));
        QTest::keyClick(horizontal, Qt::Key_Up);
        QCOMPARE(horizontal->value(), 6);
        horizontal->enableAllKeys();
        QTest::keyClick(horizontal, Qt::Key_Right);
        QCOMPARE(horizontal->value(), 7);
        QCOMPARE(parent.keys.size(), 2);
    }

    void progressUpdatersDeliverPendingEventsAtMostEvery20Ms()
    {
        int delivered = 0;
        queueCall(this, &delivered);
        NullProgressUpdater none;
        static_cast<const ProgressUpdater&>(none).updateProgress("step", 1);
        QCOMPARE(delivered, 0);

        ProgressUpdater updater;
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
};

QTEST_MAIN(tst_SmallWidgets)
#include "tst_smallwidgets.moc"
