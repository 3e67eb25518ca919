#include "Logging_p.h"

Q_LOGGING_CATEGORY(lcAction, "guicore.action", QtWarningMsg)
Q_LOGGING_CATEGORY(lcSolution, "guicore.solution", QtWarningMsg)
Q_LOGGING_CATEGORY(lcView, "guicore.view", QtWarningMsg)
Q_LOGGING_CATEGORY(lcUi, "guicore.ui", QtWarningMsg)
Q_LOGGING_CATEGORY(lcGraphics, "guicore.graphics", QtWarningMsg)
Q_LOGGING_CATEGORY(lcStyle, "guicore.style", QtWarningMsg)
Q_LOGGING_CATEGORY(lcUtility, "guicore.utility", QtWarningMsg)
