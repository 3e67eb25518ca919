#include "FontsInitializer.h"

#include <guicore/Logging_p.h>
#include <guicore/style/StyleManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QResource>
#include <QString>

void FontsInitializer::loadFonts(const StyleManager& manager, const QString& fontId)
{
    QResource::registerResource(QCoreApplication::applicationDirPath()
        + QStringLiteral("/rcc/fonts/ResourcesSharedFonts.rcc"));

    const QDir fontDir(QStringLiteral(":/fonts"));
    const QFileInfoList entries = fontDir.entryInfoList(QDir::Files, QDir::Unsorted);
    for (const QFileInfo& entry : entries) {
        const QString path = entry.absoluteFilePath();
        if (QFontDatabase::addApplicationFont(path) == -1)
            qCWarning(lcStyle).noquote() << QStringLiteral("Failed loading font ") + path;
    }

    setDefaultApplicationFont(manager, fontId);
}

void FontsInitializer::setDefaultApplicationFont(const StyleManager& manager, const QString& fontId)
{
    const QString family = manager.getFontFamilyForQFont(fontId);
    if (family.isEmpty())
        return;
    QGuiApplication::setFont(QFont(family));
}
