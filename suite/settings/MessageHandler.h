#pragma once

#include <settings/settings_export.h>

class QString;

/// Filters repeated log messages.
///
/// Messages are registered by their exact text with a suppress option: 0 never suppresses, 1
/// lets the message through once and suppresses its repeats, 2 always suppresses. Filtering
/// happens in a Qt message handler that install() puts in front of the one installed before;
/// without install() nothing is filtered. Every function may be called from any thread.
class SETTINGS_EXPORT MessageHandler
{
public:
    MessageHandler() = delete;

    /// Registers or changes the option for a message text. Registering the same option again
    /// keeps what has been let through, so a caller may register right before every logging.
    static void setMessageSuppressed(const QString& message, int option);
    /// Installs the filtering handler once; later calls do nothing.
    static void install();
    /// Restores the handler that was installed before install(); drops all registrations.
    static void uninstall();
};
