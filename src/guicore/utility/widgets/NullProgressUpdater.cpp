#include "NullProgressUpdater.h"

void NullProgressUpdater::updateProgress(const char* /*message*/, int /*value*/) const { }
