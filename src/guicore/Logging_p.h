#pragma once

#include <QLoggingCategory>

// One category per subsystem, for diagnostics beyond the documented warnings; switch them on
// with QT_LOGGING_RULES="guicore.graphics.debug=true" and the like.
Q_DECLARE_LOGGING_CATEGORY(lcAction)
Q_DECLARE_LOGGING_CATEGORY(lcSolution)
Q_DECLARE_LOGGING_CATEGORY(lcView)
Q_DECLARE_LOGGING_CATEGORY(lcUi)
Q_DECLARE_LOGGING_CATEGORY(lcGraphics)
Q_DECLARE_LOGGING_CATEGORY(lcStyle)
Q_DECLARE_LOGGING_CATEGORY(lcUtility)
