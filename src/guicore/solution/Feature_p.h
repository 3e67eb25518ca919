#pragma once

#include <functional>

namespace solution::detail {

/// Features (views, solutions, bare features) are not QObjects, so a registry that borrows them
/// cannot listen to destroyed(); nor can a Solution, which is no QObject itself, listen to its
/// steps. Such registries watch here instead: every feature announces its address from its
/// destructor, and so do View, Solution and SolutionStep, whose own addresses are the ones their
/// registries keep. Each watcher drops the pointers equal to that address; only the address may
/// be used, the object is being torn down. GUI thread only, like every registry.
struct FeatureWatchers
{
    /// Calls `forget` with the address of every announced destruction until remove(watcher).
    static void add(const void* watcher, std::function<void(const void* destroyed)> forget);
    static void remove(const void* watcher);
    /// Called by destructors with `this`.
    static void announceDestroyed(const void* object);
};

} // namespace solution::detail
