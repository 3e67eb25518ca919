#include <guicore/utility/shortcuts/ShortcutManager.h>

#include <QAction>
#include <QPointer>
#include <QRegularExpression>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <memory>

class tst_ShortcutManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sameWidgetAndSequenceGiveOneShortcut();
    void findMatchesParentAndKey();
    void applicationShortcutNeedsTheMainWidget();
    void applicationShortcutFiresOnKeyPress();
    void destroyedShortcutsAreForgotten();
    void deleteWidgetShortcut();
    void enablingSwitchesShortcutsAndActions();
    void destroyedActionStaysListedUntilRemoved();
    void destroyedMainWidgetIsForgotten();

private:
    std::unique_ptr<QWidget> m_mainWidget;
    std::unique_ptr<ShortcutManager> m_manager;
};

void tst_ShortcutManager::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    m_mainWidget = std::make_unique<QWidget>();
    m_manager = std::make_unique<ShortcutManager>();
}

void tst_ShortcutManager::cleanup()
{
    m_manager.reset();
    m_mainWidget.reset();
}

void tst_ShortcutManager::sameWidgetAndSequenceGiveOneShortcut()
{
    QShortcut* first = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("Ctrl+S"));
    QVERIFY(first);
    QCOMPARE(first->parent(), m_mainWidget.get());
    QCOMPARE(first->context(), Qt::WindowShortcut);
    QCOMPARE(first->key(), QKeySequence("Ctrl+S"));
    QCOMPARE(m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("Ctrl+S")), first);
    QCOMPARE(m_manager->getShortcuts(), std::vector<QShortcut*> {first});

    QWidget other;
    QShortcut* onOther = m_manager->addWidgetShortcut(&other, QKeySequence("Ctrl+S"));
    QVERIFY(onOther != first);
    QShortcut* otherKey = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("Ctrl+T"));
    QCOMPARE(m_manager->getShortcuts(), (std::vector<QShortcut*> {first, onOther, otherKey}));

    QVERIFY(!m_manager->addWidgetShortcut(nullptr, QKeySequence("Ctrl+S")));
}

void tst_ShortcutManager::findMatchesParentAndKey()
{
    QWidget other;
    QVERIFY(!m_manager->findShortCutFor(m_mainWidget.get(), QKeySequence("F5")));

    // Registered by hand, twice: the first registration is the one found.
    auto* manual = new QShortcut(QKeySequence("F5"), m_mainWidget.get());
    m_manager->addShortcut(manual);
    m_manager->addShortcut(manual);
    QCOMPARE(m_manager->getShortcuts().size(), size_t(2));
    QCOMPARE(m_manager->findShortCutFor(m_mainWidget.get(), QKeySequence("F5")), manual);
    QVERIFY(!m_manager->findShortCutFor(&other, QKeySequence("F5")));
    QVERIFY(!m_manager->findShortCutFor(m_mainWidget.get(), QKeySequence("F6")));

    // Every registration goes with the shortcut.
    delete manual;
    QVERIFY(m_manager->getShortcuts().empty());
}

void tst_ShortcutManager::applicationShortcutNeedsTheMainWidget()
{
    QTest::ignoreMessage(QtDebugMsg,
        "ShortcutManager : cannot add an application shortcut if "
        "the application main widget is not set.");
    QVERIFY(!m_manager->addApplicationShortcut(QKeySequence("Ctrl+Q")));
    QVERIFY(m_manager->getShortcuts().empty());

    m_manager->setMainApplicationWidget(m_mainWidget.get());
    QShortcut* shortcut = m_manager->addApplicationShortcut(QKeySequence("Ctrl+Q"));
    QVERIFY(shortcut);
    QCOMPARE(shortcut->parent(), m_mainWidget.get());
    QCOMPARE(m_manager->addApplicationShortcut(QKeySequence("Ctrl+Q")), shortcut);
    QCOMPARE(m_manager->findShortCutFor(m_mainWidget.get(), QKeySequence("Ctrl+Q")), shortcut);

    // The main widget is set once.
    QWidget second;
    QTest::ignoreMessage(
        QtDebugMsg, "ShortcutManager : we already have an application main widget set.");
    m_manager->setMainApplicationWidget(&second);
    QCOMPARE(m_manager->addApplicationShortcut(QKeySequence("F1"))->parent(), m_mainWidget.get());
}

void tst_ShortcutManager::applicationShortcutFiresOnKeyPress()
{
    m_manager->setMainApplicationWidget(m_mainWidget.get());
    QShortcut* shortcut = m_manager->addApplicationShortcut(QKeySequence("Ctrl+K"));
    QSignalSpy activated(shortcut, &QShortcut::activated);
    m_mainWidget->show();
    m_mainWidget->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_mainWidget.get()));

    QTest::keyClick(m_mainWidget.get(), Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(activated.count(), 1);

    m_manager->setEnabled(false);
    QTest::keyClick(m_mainWidget.get(), Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(activated.count(), 1);

    m_manager->setEnabled(true);
    QTest::keyClick(m_mainWidget.get(), Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(activated.count(), 2);
}

void tst_ShortcutManager::destroyedShortcutsAreForgotten()
{
    auto* child = new QWidget(m_mainWidget.get());
    QPointer<QShortcut> onChild = m_manager->addWidgetShortcut(child, QKeySequence("Ctrl+1"));
    QShortcut* onMain = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("Ctrl+2"));
    QPointer<QShortcut> alsoOnChild = m_manager->addWidgetShortcut(child, QKeySequence("Ctrl+3"));
    QCOMPARE(m_manager->getShortcuts().size(), size_t(3));

    delete child;
    QVERIFY(onChild.isNull());
    QVERIFY(alsoOnChild.isNull());
    QCOMPARE(m_manager->getShortcuts(), std::vector<QShortcut*> {onMain});
    // Nothing dangling is touched.
    m_manager->setEnabled(false);
    QVERIFY(!onMain->isEnabled());
}

void tst_ShortcutManager::deleteWidgetShortcut()
{
    QPointer<QShortcut> shortcut
        = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("Del"));
    m_manager->deleteWidgetShortcut(m_mainWidget.get(), QKeySequence("Backspace"));
    QVERIFY(!shortcut.isNull());
    m_manager->deleteWidgetShortcut(m_mainWidget.get(), QKeySequence("Del"));
    QVERIFY(shortcut.isNull());
    QVERIFY(m_manager->getShortcuts().empty());
}

void tst_ShortcutManager::enablingSwitchesShortcutsAndActions()
{
    QShortcut* shortcut = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("A"));
    QAction action;
    action.setShortcut(QKeySequence("B"));
    m_manager->addQActionWithShortcut(&action);
    QCOMPARE(m_manager->getQActions(), std::vector<QAction*> {&action});

    m_manager->setEnabled(false);
    QVERIFY(!shortcut->isEnabled());
    QVERIFY(!action.isEnabled());

    // Shortcuts made later are not affected by an earlier switch.
    QShortcut* later = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("C"));
    QVERIFY(later->isEnabled());

    m_manager->setEnabled(true);
    QVERIFY(shortcut->isEnabled());
    QVERIFY(action.isEnabled());

    m_manager->removeQAction(&action);
    QVERIFY(m_manager->getQActions().empty());
    m_manager->setEnabled(false);
    QVERIFY(action.isEnabled());
}

void tst_ShortcutManager::destroyedActionStaysListedUntilRemoved()
{
    // The destroyed() of an action is wired to removeShortcut, so the action list keeps the
    // address; applications remove their actions themselves first.
    auto action = std::make_unique<QAction>();
    QAction* address = action.get();
    QShortcut* shortcut = m_manager->addWidgetShortcut(m_mainWidget.get(), QKeySequence("D"));
    m_manager->addQActionWithShortcut(address);
    action.reset();
    QCOMPARE(m_manager->getQActions(), std::vector<QAction*> {address});
    QCOMPARE(m_manager->getShortcuts(), std::vector<QShortcut*> {shortcut});
    m_manager->removeQAction(address);
    QVERIFY(m_manager->getQActions().empty());
}

void tst_ShortcutManager::destroyedMainWidgetIsForgotten()
{
    auto window = std::make_unique<QWidget>();
    m_manager->setMainApplicationWidget(window.get());
    window.reset();

    // No application shortcut is ever parented to the destroyed widget; a new one may take over.
    QTest::ignoreMessage(QtDebugMsg,
        "ShortcutManager : cannot add an application shortcut if "
        "the application main widget is not set.");
    QCOMPARE(m_manager->addApplicationShortcut(QKeySequence("Ctrl+Q")), nullptr);
    m_manager->setMainApplicationWidget(m_mainWidget.get());
    QCOMPARE(
        m_manager->addApplicationShortcut(QKeySequence("Ctrl+Q"))->parent(), m_mainWidget.get());
}

QTEST_MAIN(tst_ShortcutManager)
#include "tst_shortcutmanager.moc"
