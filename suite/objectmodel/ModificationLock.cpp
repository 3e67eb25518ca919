#include <objectmodel/ModificationLock.h>

#include <atomic>

namespace utility {
namespace {

constexpr int scopeCount = 2;

std::atomic<int>& depth(ModificationLock::Scope scope)
{
    static std::atomic<int> depths[scopeCount] = {};
    return depths[static_cast<int>(scope)];
}

} // namespace

ModificationLock::ModificationLock(Scope scope)
    : m_scope(scope)
{
    ++depth(m_scope);
}

ModificationLock::~ModificationLock()
{
    --depth(m_scope);
}

bool ModificationLock::isLocked(Scope scope)
{
    return depth(scope).load() > 0;
}

} // namespace utility
