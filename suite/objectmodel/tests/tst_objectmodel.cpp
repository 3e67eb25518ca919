#include <objectmodel/CoreObject.h>
#include <objectmodel/ModificationLock.h>
#include <objectmodel/StringConversions.h>

#include <QKeySequence>
#include <QtTest>

namespace {

// One class level: registers its name from every constructor, the copy constructor included.
template <class Base, const char* name> struct Level : Base
{
    Level() { this->CORE_OBJECT_INIT(QString::fromLatin1(name)); }
    Level(const Level& other)
        : Base(other)
    {
        this->CORE_OBJECT_INIT(QString::fromLatin1(name));
    }
};
constexpr char shapeName[] = "Shape";
constexpr char circleName[] = "Circle";
using Shape = Level<CoreObject, shapeName>;
using Circle = Level<Shape, circleName>;

} // namespace

class tst_ObjectModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void typesLocksAndShortcutText()
    {
        const Circle circle;
        QCOMPARE(circle.getTypeName(), QStringLiteral("Circle"));
        QVERIFY(circle.isOfType("Shape") && !circle.isOfType("shape"));
        const Circle copy(circle);
        QCOMPARE(copy.getInheritanceList(), QList<QString>({"Shape", "Circle"}));
        const Shape sliced(circle); // a base-level copy is just a base
        QCOMPARE(sliced.getInheritanceList(), QList<QString>({"Shape"}));
        Shape assigned;
        assigned = circle;
        QCOMPARE(assigned.getTypeName(), QStringLiteral("Shape"));
        using utility::ModificationLock;
        constexpr auto ui = ModificationLock::Scope::UserInterfaceState;
        auto outer = std::make_unique<ModificationLock>(ui);
        delete new ModificationLock(ui); // locks nest: the outer one still holds
        QVERIFY(ModificationLock::isLocked(ui)
            && !ModificationLock::isLocked(ModificationLock::Scope::Document));
        outer.reset();
        QVERIFY(!ModificationLock::isLocked(ui));
        const QKeySequence save(QStringLiteral("Ctrl+S"));
        const QKeySequence f5(Qt::Key_F5);
        QCOMPARE(StringConversions::qkeySequencesToAppendableString({}), QString());
        QCOMPARE(StringConversions::qkeySequencesToAppendableString({f5}), QStringLiteral(" (F5)"));
        QCOMPARE(StringConversions::qkeySequencesToAppendableString({save, f5}),
            QStringLiteral(" (%1, F5)").arg(save.toString(QKeySequence::NativeText)));
    }
};

QTEST_MAIN(tst_ObjectModel)
#include "tst_objectmodel.moc"
