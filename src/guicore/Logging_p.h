#pragma once

#include <QLoggingCategory>

// One category per subsystem. Warnings go through them (on by default); their debug and info
// output is tracing, off unless switched on with QT_LOGGING_RULES="guicore.graphics.debug=true"
// and the like. Messages that the library documents at debug or information level use the plain
// qDebug/qInfo instead, so that they reach the log without any rule.
Q_DECLARE_LOGGING_CATEGORY(lcAction)
Q_DECLARE_LOGGING_CATEGORY(lcSolution)
Q_DECLARE_LOGGING_CATEGORY(lcView)
Q_DECLARE_LOGGING_CATEGORY(lcUi)
Q_DECLARE_LOGGING_CATEGORY(lcGraphics)
Q_DECLARE_LOGGING_CATEGORY(lcStyle)
Q_DECLARE_LOGGING_CATEGORY(lcUtility)
