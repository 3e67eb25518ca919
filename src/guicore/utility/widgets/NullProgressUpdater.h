#pragma once

#include <guicore/guicore_export.h>
#include <guicore/utility/widgets/ProgressUpdater.h>

/// A progress updater that does nothing, for callers that need none: it never processes
/// events, so nothing can re-enter the caller.
class GUICORE_EXPORT NullProgressUpdater : public ProgressUpdater
{
public:
    /// Does nothing.
    void updateProgress(const char* message, int value) const override;
};
