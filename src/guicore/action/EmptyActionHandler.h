#pragma once

#include <guicore/action/ActionHandler.h>

/// A handler without work of its own: a non-checkable action (a one-shot command) ends inside its
/// own start, a checkable one stays active until stopped.
class GUICORE_EXPORT EmptyActionHandler : public ActionHandler
{
    Q_OBJECT

public:
    EmptyActionHandler();

protected:
    void start() override;
    void stop() override;
};
