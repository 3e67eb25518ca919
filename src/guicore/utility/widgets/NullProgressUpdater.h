#pragma once

#include <guicore/guicore_export.h>
#include <guicore/utility/widgets/ProgressUpdater.h>

/// A progress updater that does nothing, for callers that need none.
class GUICORE_EXPORT NullProgressUpdater : public ProgressUpdater
{
public:
    void updateProgress(const char* message, int value) const override;
};
