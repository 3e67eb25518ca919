#include <objectmodel/CoreObject.h>
#include <objectmodel/ModificationLock.h>
#include <objectmodel/StringConversions.h>

#include <QKeySequence>
#include <QtTest>

namespace {

class Shape : public CoreObject
{
public:
    Shape() { CORE_OBJECT_INIT(QStringLiteral("Shape")); }
    Shape(const Shape& other)
        : CoreObject(other)
    {
        CORE_OBJECT_INIT(QStringLiteral("Shape"));
    }
};

class Circle : public Shape
{
public:
    Circle() { CORE_OBJECT_INIT(QStringLiteral("Circle")); }
    Circle(const Circle& other)
        : Shape(other)
    {
        CORE_OBJECT_INIT(QStringLiteral("Circle"));
    }
};

} // namespace

class tst_ObjectModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void inheritanceListRootFirst();
    void copiesRegisterTheirOwnLevels();
    void lockNestsPerScope();
    void appendableShortcutText_data();
    void appendableShortcutText();
};

void tst_ObjectModel::inheritanceListRootFirst()
{
    const Circle circle;
    QCOMPARE(circle.getInheritanceList(), QList<QString>({"Shape", "Circle"}));
    QCOMPARE(circle.getTypeName(), QStringLiteral("Circle"));
    QVERIFY(circle.isOfType(QStringLiteral("Shape")));
    QVERIFY(!circle.isOfType(QStringLiteral("shape")));
}

void tst_ObjectModel::copiesRegisterTheirOwnLevels()
{
    const Circle circle;
    const Circle copy(circle);
    QCOMPARE(copy.getInheritanceList(), QList<QString>({"Shape", "Circle"}));
    const Shape sliced(circle); // a base-level copy is just a base
    QCOMPARE(sliced.getInheritanceList(), QList<QString>({"Shape"}));
    Shape assigned;
    assigned = circle;
    QCOMPARE(assigned.getTypeName(), QStringLiteral("Shape"));
}

void tst_ObjectModel::lockNestsPerScope()
{
    using utility::ModificationLock;
    QVERIFY(!ModificationLock::isLocked(ModificationLock::Scope::UserInterfaceState));
    {
        ModificationLock outer(ModificationLock::Scope::UserInterfaceState);
        {
            ModificationLock inner(ModificationLock::Scope::UserInterfaceState);
            QVERIFY(ModificationLock::isLocked(ModificationLock::Scope::UserInterfaceState));
        }
        QVERIFY(ModificationLock::isLocked(ModificationLock::Scope::UserInterfaceState));
        QVERIFY(!ModificationLock::isLocked(ModificationLock::Scope::Document));
    }
    QVERIFY(!ModificationLock::isLocked(ModificationLock::Scope::UserInterfaceState));
}

void tst_ObjectModel::appendableShortcutText_data()
{
    QTest::addColumn<QList<QKeySequence>>("sequences");
    QTest::addColumn<QString>("expected");
    const QKeySequence save(QStringLiteral("Ctrl+S"));
    const QKeySequence f5(Qt::Key_F5);
    QTest::newRow("none") << QList<QKeySequence>() << QString();
    QTest::newRow("one") << QList<QKeySequence> {f5} << QStringLiteral(" (F5)");
    QTest::newRow("two") << QList<QKeySequence> {
        save, f5} << QStringLiteral(" (%1, F5)").arg(save.toString(QKeySequence::NativeText));
}

void tst_ObjectModel::appendableShortcutText()
{
    QFETCH(QList<QKeySequence>, sequences);
    QFETCH(QString, expected);
    QCOMPARE(StringConversions::qkeySequencesToAppendableString(sequences), expected);
}

QTEST_MAIN(tst_ObjectModel)
#include "tst_objectmodel.moc"
