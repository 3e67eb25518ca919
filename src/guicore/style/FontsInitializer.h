#pragma once

#include <guicore/guicore_export.h>

class QString;
class StyleManager;

/// Makes the suite's shared font files available and sets the application font from the style.
///
/// Call it at start-up, after StyleManager::createManager() and before widgets are made, on the
/// GUI thread (QFontDatabase and QGuiApplication::setFont require it).
class GUICORE_EXPORT FontsInitializer
{
public:
    FontsInitializer() = delete;

    /// Registers `<application dir>/rcc/fonts/ResourcesSharedFonts.rcc` (a missing file is not
    /// an error: the fonts may come from elsewhere), adds every font under ":/fonts" and then
    /// does what `setDefaultApplicationFont` does. A font that cannot be loaded is logged and
    /// skipped, with the warning "Failed loading font " followed by its path.
    static void loadFonts(const StyleManager& manager, const QString& fontId);
    /// The application font becomes the style's family for fontId at default size and weight;
    /// a family that the style does not give leaves the application font alone (after the
    /// manager's "font not found" warning).
    static void setDefaultApplicationFont(const StyleManager& manager, const QString& fontId);
};
