#pragma once

#include <objectmodel/objectmodel_export.h>

namespace utility {

/// RAII guard that marks a kind of data as being loaded rather than edited: while a scope is
/// locked, models of that kind do not record modifications. Locks nest; the scope stays locked
/// until the outermost guard is gone. Meant for the GUI thread, but the count is atomic.
class OBJECTMODEL_EXPORT ModificationLock
{
public:
    enum class Scope { Document, UserInterfaceState };

    explicit ModificationLock(Scope scope);
    ~ModificationLock();

    ModificationLock(const ModificationLock&) = delete;
    ModificationLock& operator=(const ModificationLock&) = delete;

    static bool isLocked(Scope scope);

private:
    Scope m_scope;
};

} // namespace utility
