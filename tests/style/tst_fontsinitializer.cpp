#include <guicore/style/FontsInitializer.h>
#include <guicore/style/StyleManager.h>

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

class TestStyleManager : public StyleManager
{
public:
    using StyleManager::setFonts;
};

// Application font ids are handed out from 0 upwards; collect the families of all of them.
QSet<QString> applicationFontFamilies()
{
    QSet<QString> families;
    for (int id = 0; id < 16; ++id) {
        for (const QString& family : QFontDatabase::applicationFontFamilies(id))
            families.insert(family);
    }
    return families;
}

} // namespace

class tst_FontsInitializer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void setDefaultApplicationFont_data();
    void setDefaultApplicationFont();
    void loadFontsSkipsBrokenFontAndLoadsTheOthers();

private:
    TestStyleManager manager;
};

void tst_FontsInitializer::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QGuiApplication::setFont(QFont(QStringLiteral("Initial Family")));
}

void tst_FontsInitializer::setDefaultApplicationFont_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("family");

    QTest::newRow("quoted") << "\"Quoted Family\""
                            << "Quoted Family";
    QTest::newRow("unquoted") << "Plain Family"
                              << "Plain Family";
}

void tst_FontsInitializer::setDefaultApplicationFont()
{
    QFETCH(QString, value);
    QFETCH(QString, family);
    manager.setFonts({{"@APP", value}, {"@EMPTY", ""}});

    FontsInitializer::setDefaultApplicationFont(manager, "@APP");
    const QFont font = QGuiApplication::font();
    QCOMPARE(font.family(), family);
    QCOMPARE(font, QFont(family)); // size, weight and style at their defaults

    QTest::ignoreMessage(QtWarningMsg, "StyleManager : font not found for id \"@EMPTY\"");
    FontsInitializer::setDefaultApplicationFont(manager, "@EMPTY");
    QCOMPARE(QGuiApplication::font().family(), family); // left alone
}

void tst_FontsInitializer::loadFontsSkipsBrokenFontAndLoadsTheOthers()
{
    const QString rcc
        = QCoreApplication::applicationDirPath() + "/rcc/fonts/ResourcesSharedFonts.rcc";
    QVERIFY2(QFile::exists(rcc), qPrintable(rcc));
    QVERIFY(!QFile::exists(":/fonts/DejaVuSans.ttf"));
    QVERIFY(!applicationFontFamilies().contains("DejaVu Sans"));

    manager.setFonts({{"@APP", "\"DejaVu Sans\""}});
    QTest::ignoreMessage(QtWarningMsg, "Failed loading font :/fonts/Broken.ttf");
    FontsInitializer::loadFonts(manager, "@APP");

    QVERIFY(QFile::exists(":/fonts/DejaVuSans.ttf"));
    QVERIFY(applicationFontFamilies().contains("DejaVu Sans"));
    QCOMPARE(QGuiApplication::font().family(), QString("DejaVu Sans"));
}

QTEST_MAIN(tst_FontsInitializer)
#include "tst_fontsinitializer.moc"
