#include "ActionRegistry.h"

namespace action {

ActionRegistry::~ActionRegistry() = default;

} // namespace action
