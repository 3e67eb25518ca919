#include "Feature.h"

#include "Feature_p.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace solution {

namespace detail {
namespace {

struct Watcher
{
    const void* key;
    std::function<void(const void*)> forget;
};

std::vector<Watcher>& watchers()
{
    // Made on first use and never destroyed: features that die among the static destructors at
    // exit (in a plug-in Qt's loader deletes then, say) must still find the list.
    static auto* live = new std::vector<Watcher>;
    return *live;
}

} // namespace

void FeatureWatchers::add(const void* watcher, std::function<void(const void*)> forget)
{
    watchers().push_back({watcher, std::move(forget)});
}

void FeatureWatchers::remove(const void* watcher)
{
    auto& live = watchers();
    live.erase(std::remove_if(live.begin(), live.end(),
                   [watcher](const Watcher& w) { return w.key == watcher; }),
        live.end());
}

void FeatureWatchers::announceDestroyed(const void* object)
{
    // Watchers only drop pointers; indexing rather than iterating keeps the loop safe should one
    // ever add or remove a watcher while being told.
    auto& live = watchers();
    for (std::size_t i = 0; i < live.size(); ++i)
        live[i].forget(object);
}

} // namespace detail

Feature::Feature(const QString& id)
    : m_id(id)
{
}

Feature::Feature(const Feature& other) = default;

Feature& Feature::operator=(const Feature& other) = default;

Feature::~Feature()
{
    detail::FeatureWatchers::announceDestroyed(this);
}

QString Feature::getID() const
{
    return m_id;
}

void Feature::setID(const QString& id)
{
    m_id = id;
}

} // namespace solution
