// Replays every committed fuzzing input, the seed corpora and the inputs of crashes that were
// found and fixed, through the same entry functions as the libFuzzer targets, so that the normal
// build keeps them fixed. Each input must go through without a crash, a sanitizer report (under
// the asan preset) or a broken property (FuzzEntries.h aborts on those).

#include "FuzzEntries.h"

#include <QDir>
#include <QtTest>

class tst_FuzzRegression : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void replay_data();
    void replay();
    void everyTargetHasSeeds();

private:
    QtMessageHandler previousHandler = nullptr;
};

namespace {

/// Malformed inputs warn by design and the texts are checked in tst_badinput; here they are only
/// noise, and some inputs produce hundreds of lines.
void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) { }

QStringList inputFolders()
{
    return {QStringLiteral("corpus"), QStringLiteral("crashes")};
}

} // namespace

void tst_FuzzRegression::initTestCase()
{
    QVERIFY(QDir(QStringLiteral(GUICORE_FUZZ_DIR "/corpus")).exists());
}

void tst_FuzzRegression::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    previousHandler = qInstallMessageHandler(dropMessage);
}

void tst_FuzzRegression::cleanup()
{
    qInstallMessageHandler(previousHandler);
}

void tst_FuzzRegression::replay_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("path");
    for (const fuzz::Entry& entry : fuzz::entries()) {
        for (const QString& folder : inputFolders()) {
            const QDir dir(QStringLiteral(GUICORE_FUZZ_DIR "/%1/%2").arg(folder, entry.name));
            const QStringList files = dir.entryList(QDir::Files, QDir::Name);
            for (const QString& file : files) {
                QTest::addRow("%s/%s/%s", qPrintable(folder), entry.name, qPrintable(file))
                    << QString::fromLatin1(entry.name) << dir.filePath(file);
            }
        }
    }
}

void tst_FuzzRegression::replay()
{
    QFETCH(QString, target);
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray data = file.readAll();
    for (const fuzz::Entry& entry : fuzz::entries()) {
        if (target == QLatin1String(entry.name))
            entry.run(data);
    }
}

void tst_FuzzRegression::everyTargetHasSeeds()
{
    for (const fuzz::Entry& entry : fuzz::entries()) {
        const QDir dir(QStringLiteral(GUICORE_FUZZ_DIR "/corpus/%1").arg(entry.name));
        QVERIFY2(!dir.entryList(QDir::Files).isEmpty(), entry.name);
    }
}

QTEST_MAIN(tst_FuzzRegression)
#include "tst_fuzzregression.moc"
