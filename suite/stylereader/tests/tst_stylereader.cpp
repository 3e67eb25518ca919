#include <stylereader/StyleReader.h>

#include <QtTest>

using StyleMap = QHash<QString, QString>;

class tst_StyleReader : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString write(const char* name, const QByteArray& content)
    {
        QFile file(m_dir.filePath(QString::fromLatin1(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write %s", name);
        return file.fileName();
    }

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void filesPalettesAndBadInput()
    {
        const QString first = write("1.txt",
            "// colours\n"
            "@ACCENT: @BASE;\n"
            "\n"
            "  @LABEL_FONT :  16 \"Open Sans\"  ;\n"
            "/* @HIDDEN: 1;\n"
            "   @ALSO_HIDDEN: 2; */\n"
            "@BASE: red;\n"
            "@NO_SEMICOLON: 3px\n"
            "@UMLAUT: M\xc3\xbcnchen;\n");
        const QString second = write("2.txt", "@BASE: blue;\n@CHAIN: @ACCENT;\n");
        // References resolve only after every file is read.
        QCOMPARE(StyleReader().convertFilesToStyleMap({first, second}),
            (StyleMap {{"@LABEL_FONT", "16 \"Open Sans\""}, {"@NO_SEMICOLON", "3px"},
                {"@UMLAUT", "M\u00fcnchen"}, {"@BASE", "blue"}, {"@ACCENT", "blue"},
                {"@CHAIN", "blue"}}));
        const QString file = write(
            "palette.txt", "[Dark]\n@BG: #000000;\n@TEXT: @BG;\n[Light]\n@BG: #ffffff;\n[Empty]\n");
        StyleReader reader;
        QCOMPARE(reader.convertFilesToStyleMap(QStringLiteral("Dark"), file),
            (StyleMap {{"@BG", "#000000"}, {"@TEXT", "#000000"}}));
        QCOMPARE(reader.convertFilesToStyleMap("Light", file), (StyleMap {{"@BG", "#ffffff"}}));
        QVERIFY(reader.convertFilesToStyleMap(QStringLiteral("Empty"), file).isEmpty());
        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(QStringLiteral("StyleReader : unknown palette Sepia in %1").arg(file)));
        QVERIFY(reader.convertFilesToStyleMap(QStringLiteral("Sepia"), file).isEmpty());
        const QString bad = write("bad.txt",
            "@GOOD: 1;\nGARBAGE LINE\n@: 2;\n@A: @B;\n@B: @A;\n@C: @NOWHERE;\n@D: @A @B;\n");
        const QString missing = m_dir.filePath(QStringLiteral("missing.txt"));
        for (const QString& warning :
            QStringList {"cannot open file " + missing,
                QString("malformed line 2 in %1: GARBAGE LINE").arg(bad),
                QString("malformed line 3 in %1: @: 2;").arg(bad), "unresolved reference @B for @A",
                "unresolved reference @A for @B", "unresolved reference @NOWHERE for @C"})
            QTest::ignoreMessage(QtWarningMsg, qPrintable("StyleReader : " + warning));
        // Bad references keep their text; "@A @B" is not exactly one reference but plain text.
        QCOMPARE(StyleReader().convertFilesToStyleMap({missing, bad}),
            (StyleMap {
                {"@GOOD", "1"}, {"@A", "@B"}, {"@B", "@A"}, {"@C", "@NOWHERE"}, {"@D", "@A @B"}}));
    }
};

QTEST_GUILESS_MAIN(tst_StyleReader)
#include "tst_stylereader.moc"
