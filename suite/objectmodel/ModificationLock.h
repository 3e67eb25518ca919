#pragma once

#include <objectmodel/objectmodel_export.h>

/// Small helpers of the suite's object-model library.
namespace utility {

/// RAII guard that marks a kind of data as being loaded rather than edited: while a scope is
/// locked, models of that kind do not record modifications. Locks nest; the scope stays locked
/// until the outermost guard is gone. Meant for the GUI thread, but the count is atomic.
///
/// The lock is process-wide, not per thread: while one thread holds it (reading a state tree,
/// say), edits made on any other thread are not recorded either.
class OBJECTMODEL_EXPORT ModificationLock
{
public:
    /// The kinds of data a lock applies to.
    enum class Scope {
        Document, ///< The patient's documents and data objects.
        UserInterfaceState ///< The user-interface state tree (ui::Node and its kinds).
    };

    /// Locks scope until the guard is destroyed.
    explicit ModificationLock(Scope scope);
    /// Releases this guard's hold on its scope.
    ~ModificationLock();

    ModificationLock(const ModificationLock&) = delete;
    ModificationLock& operator=(const ModificationLock&) = delete;

    /// True while at least one guard of scope exists.
    static bool isLocked(Scope scope);

private:
    Scope m_scope;
};

} // namespace utility
