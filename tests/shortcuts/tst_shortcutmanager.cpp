#include <guicore/utility/shortcuts/ShortcutManager.h>

#include <QAction>
#include <QPointer>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

class tst_ShortcutManager : public QObject
{
    Q_OBJECT

    std::unique_ptr<QWidget> m_main;
    std::unique_ptr<ShortcutManager> m_manager;

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(".*"));
        m_manager = std::make_unique<ShortcutManager>();
        m_main = std::make_unique<QWidget>();
    }

    void shortcutsAreUniqueFollowTheSwitchAndAreForgotten()
    {
        QShortcut* first = m_manager->addWidgetShortcut(m_main.get(), QKeySequence("Ctrl+S"));
        QCOMPARE(first->parent(), m_main.get());
        QCOMPARE(first->context(), Qt::WindowShortcut);
        QCOMPARE(m_manager->addWidgetShortcut(m_main.get(), QKeySequence("Ctrl+S")), first);
        auto* child = new QWidget(m_main.get());
        QShortcut* onChild = m_manager->addWidgetShortcut(child, QKeySequence("Ctrl+S"));
        QShortcut* otherKey = m_manager->addWidgetShortcut(m_main.get(), QKeySequence("Ctrl+T"));
        QCOMPARE(m_manager->getShortcuts(), (std::vector<QShortcut*> {first, onChild, otherKey}));
        QVERIFY(!m_manager->addWidgetShortcut(nullptr, QKeySequence("Ctrl+S")));

        // Deleting by widget and key removes that one shortcut.
        QPointer<QShortcut> doomedKey = otherKey;
        m_manager->deleteWidgetShortcut(m_main.get(), QKeySequence("Ctrl+T"));
        QVERIFY(doomedKey.isNull());

        // Registered by hand, twice: the first registration is found, and every one goes with the
        // shortcut; so do the shortcuts of a deleted widget.
        auto* manual = new QShortcut(QKeySequence("F5"), m_main.get());
        m_manager->addShortcut(nullptr);
        m_manager->addShortcut(manual);
        m_manager->addShortcut(manual);
        QCOMPARE(m_manager->getShortcuts().size(), size_t(4));
        QCOMPARE(m_manager->findShortCutFor(m_main.get(), QKeySequence("F5")), manual);
        m_manager->addWidgetShortcut(child, QKeySequence("Ctrl+3"));
        delete manual;
        delete child;
        QCOMPARE(m_manager->getShortcuts(), std::vector<QShortcut*> {first});
        // Nothing dangling is left for the switch below to touch.

        const char* noMainWidget = "ShortcutManager : cannot add an application shortcut if the "
                                   "application main widget is not set.";
        QTest::ignoreMessage(QtDebugMsg, noMainWidget);
        QVERIFY(!m_manager->addApplicationShortcut(QKeySequence("Ctrl+K")));
        // A destroyed main widget is forgotten; the next one is set once.
        auto window = std::make_unique<QWidget>();
        m_manager->setMainApplicationWidget(window.get());
        window.reset();
        QTest::ignoreMessage(QtDebugMsg, noMainWidget);
        QVERIFY(!m_manager->addApplicationShortcut(QKeySequence("Ctrl+K")));
        m_manager->setMainApplicationWidget(m_main.get());
        QWidget second;
        QTest::ignoreMessage(
            QtDebugMsg, "ShortcutManager : we already have an application main widget set.");
        m_manager->setMainApplicationWidget(&second);
        QShortcut* shortcut = m_manager->addApplicationShortcut(QKeySequence("Ctrl+K"));
        QCOMPARE(m_manager->addApplicationShortcut(QKeySequence("Ctrl+K")), shortcut);

        // The switch turns the shortcuts and the registered actions off and on again.
        QSignalSpy activated(shortcut, &QShortcut::activated);
        QAction action;
        m_manager->addQActionWithShortcut(nullptr);
        m_manager->addQActionWithShortcut(&action);
        QCOMPARE(m_manager->getQActions(), std::vector<QAction*> {&action});
        m_main->show();
        m_main->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
        QList<bool> enabled;
        for (const bool on : {true, false, true}) {
            m_manager->setEnabled(on);
            QTest::keyClick(m_main.get(), Qt::Key_K, Qt::ControlModifier);
            enabled << shortcut->isEnabled() << action.isEnabled();
        }
        QCOMPARE(enabled, (QList<bool> {true, true, false, false, true, true}));
        QCOMPARE(activated.count(), 2);

        // Shortcuts made later are not affected by an earlier switch; a removed action is left
        // alone.
        m_manager->setEnabled(false);
        QVERIFY(m_manager->addWidgetShortcut(m_main.get(), QKeySequence("C"))->isEnabled());
        m_manager->removeQAction(&action);
        m_manager->setEnabled(true);
        QVERIFY(!action.isEnabled());

        // The destroyed() of an action is wired to removeShortcut, so the action list keeps its
        // address: applications remove their actions themselves before deleting them.
        auto* doomed = new QAction;
        m_manager->addQActionWithShortcut(doomed);
        delete doomed;
        QCOMPARE(m_manager->getQActions(), std::vector<QAction*> {doomed});
        m_manager->removeQAction(doomed);
        QVERIFY(m_manager->getQActions().empty());
    }
};

QTEST_MAIN(tst_ShortcutManager)
#include "tst_shortcutmanager.moc"
