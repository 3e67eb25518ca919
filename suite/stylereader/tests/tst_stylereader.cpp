#include <stylereader/StyleReader.h>

#include <QtTest>

class tst_StyleReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        QVERIFY(m_dir.isValid());
    }

    void readsEntriesAndIgnoresComments();
    void laterFilesOverrideAndReferencesResolveAcrossFiles();
    void malformedLinesWarnAndKeepTheRest();
    void badReferencesKeepTheirText();
    void missingFileWarnsAndOthersAreRead();
    void paletteSections();

private:
    QString write(const QString& name, const QByteArray& content)
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write %s", qPrintable(path));
        file.write(content);
        return path;
    }
    QTemporaryDir m_dir;
};

void tst_StyleReader::readsEntriesAndIgnoresComments()
{
    const QString file = write(QStringLiteral("a.txt"),
        "// colours\n"
        "@BACKGROUND: #101010;\n"
        "\n"
        "  @LABEL_FONT :  16 \"Open Sans\"  ;\n"
        "/* @HIDDEN: 1;\n"
        "   @ALSO_HIDDEN: 2; */\n"
        "@NO_SEMICOLON: 3px\n"
        "@UMLAUT: M\xc3\xbcnchen;\n");
    const QHash<QString, QString> map = StyleReader().convertFilesToStyleMap({file});
    QCOMPARE(map.size(), 4);
    QCOMPARE(map.value("@BACKGROUND"), QStringLiteral("#101010"));
    QCOMPARE(map.value("@LABEL_FONT"), QStringLiteral("16 \"Open Sans\""));
    QCOMPARE(map.value("@NO_SEMICOLON"), QStringLiteral("3px"));
    QCOMPARE(map.value("@UMLAUT"), QStringLiteral("M\u00fcnchen"));
}

void tst_StyleReader::laterFilesOverrideAndReferencesResolveAcrossFiles()
{
    const QString first
        = write(QStringLiteral("1.txt"), "@ACCENT: @BASE;\n@BASE: red;\n@KEEP: 1;\n");
    const QString second = write(QStringLiteral("2.txt"), "@BASE: blue;\n@CHAIN: @ACCENT;\n");
    const QHash<QString, QString> map = StyleReader().convertFilesToStyleMap({first, second});
    QCOMPARE(map.value("@BASE"), QStringLiteral("blue"));
    QCOMPARE(map.value("@ACCENT"), QStringLiteral("blue")); // resolved after every file is read
    QCOMPARE(map.value("@CHAIN"), QStringLiteral("blue"));
    QCOMPARE(map.value("@KEEP"), QStringLiteral("1"));
}

void tst_StyleReader::malformedLinesWarnAndKeepTheRest()
{
    const QString file
        = write(QStringLiteral("bad.txt"), "@GOOD: 1;\nGARBAGE LINE\n@: 2;\n@ALSO_GOOD: 3;\n");
    QTest::ignoreMessage(QtWarningMsg,
        qPrintable(QStringLiteral("StyleReader : malformed line 2 in %1: GARBAGE LINE").arg(file)));
    QTest::ignoreMessage(QtWarningMsg,
        qPrintable(QStringLiteral("StyleReader : malformed line 3 in %1: @: 2;").arg(file)));
    const QHash<QString, QString> map = StyleReader().convertFilesToStyleMap({file});
    QCOMPARE(map.size(), 2);
    QCOMPARE(map.value("@GOOD"), QStringLiteral("1"));
    QCOMPARE(map.value("@ALSO_GOOD"), QStringLiteral("3"));
}

void tst_StyleReader::badReferencesKeepTheirText()
{
    const QString file
        = write(QStringLiteral("refs.txt"), "@A: @B;\n@B: @A;\n@C: @NOWHERE;\n@D: @A @B;\n");
    QTest::ignoreMessage(QtWarningMsg, "StyleReader : unresolved reference @B for @A");
    QTest::ignoreMessage(QtWarningMsg, "StyleReader : unresolved reference @A for @B");
    QTest::ignoreMessage(QtWarningMsg, "StyleReader : unresolved reference @NOWHERE for @C");
    const QHash<QString, QString> map = StyleReader().convertFilesToStyleMap({file});
    QCOMPARE(map.value("@A"), QStringLiteral("@B"));
    QCOMPARE(map.value("@C"), QStringLiteral("@NOWHERE"));
    QCOMPARE(map.value("@D"), QStringLiteral("@A @B")); // not exactly one reference: plain text
}

void tst_StyleReader::missingFileWarnsAndOthersAreRead()
{
    const QString good = write(QStringLiteral("good.txt"), "@X: 1;\n");
    const QString missing = m_dir.filePath(QStringLiteral("missing.txt"));
    QTest::ignoreMessage(
        QtWarningMsg, qPrintable(QStringLiteral("StyleReader : cannot open file %1").arg(missing)));
    const QHash<QString, QString> map = StyleReader().convertFilesToStyleMap({missing, good});
    QCOMPARE(map, (QHash<QString, QString> {{"@X", "1"}}));
}

void tst_StyleReader::paletteSections()
{
    const QString file = write(QStringLiteral("palette.txt"),
        "[Dark]\n@BG: #000000;\n@TEXT: @BG;\n"
        "[Light]\n@BG: #ffffff;\n"
        "[Empty]\n");
    StyleReader reader;
    QCOMPARE(reader.convertFilesToStyleMap(QStringLiteral("Dark"), file),
        (QHash<QString, QString> {{"@BG", "#000000"}, {"@TEXT", "#000000"}}));
    QCOMPARE(reader.convertFilesToStyleMap(QStringLiteral("Light"), file),
        (QHash<QString, QString> {{"@BG", "#ffffff"}}));
    QVERIFY(reader.convertFilesToStyleMap(QStringLiteral("Empty"), file).isEmpty());
    QTest::ignoreMessage(QtWarningMsg,
        qPrintable(QStringLiteral("StyleReader : unknown palette Sepia in %1").arg(file)));
    QVERIFY(reader.convertFilesToStyleMap(QStringLiteral("Sepia"), file).isEmpty());
}

QTEST_GUILESS_MAIN(tst_StyleReader)
#include "tst_stylereader.moc"
