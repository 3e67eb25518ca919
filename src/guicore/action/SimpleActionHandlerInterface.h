#pragma once

#include <guicore/guicore_export.h>

#include <QObject>

class QAction;

/// A minimal receiver for a plain QAction: handleTriggered() runs whenever the QAction triggers.
class GUICORE_EXPORT SimpleActionHandlerInterface : public QObject
{
    Q_OBJECT

public:
    /// Becomes a child of `action`, so it dies with it; a null action gives a parentless object.
    explicit SimpleActionHandlerInterface(QAction* action);

    /// Runs on every triggered() of the QAction given at construction.
    virtual void handleTriggered() = 0;
};
