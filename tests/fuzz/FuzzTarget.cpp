// One libFuzzer target; GUICORE_FUZZ_ENTRY names the entry of FuzzEntries.h it drives. Built
// only with -DGUICORE_FUZZ=ON (./run fuzz), see tst_fuzzregression.cmake.

#include "FuzzEntries.h"

#include <QGuiApplication>

#include <cstdint>
#include <cstring>

namespace {

void (*entry)(const QByteArray&) = nullptr;

/// Every malformed input warns; printing millions of warnings would be most of the run time.
void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) { }

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(dropMessage);
    // Fonts and formats need a GUI application; it lives as long as the process.
    static QGuiApplication application(*argc, *argv);
    for (const fuzz::Entry& candidate : fuzz::entries()) {
        if (std::strcmp(candidate.name, GUICORE_FUZZ_ENTRY) == 0)
            entry = candidate.run;
    }
    return entry ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    entry(QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
    return 0;
}
