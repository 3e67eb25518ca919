#pragma once

// The solution registries keep views by id and delete the views they own; both need the complete
// View class, which the view subsystem declares. The build defines GUICORE_HAVE_VIEW_CLASS
// according to whether it is there (see CMakeLists.txt).
#include <guicore/solution/Feature.h>

#if GUICORE_HAVE_VIEW_CLASS
#include <guicore/view/View.h>

#include <type_traits>

namespace solution::detail {
static_assert(std::is_base_of_v<Feature, View>, "a view is a feature known by its id");

inline QString viewId(const View* view)
{
    return view->getID();
}

inline void deleteView(View* view)
{
    delete view;
}
} // namespace solution::detail

#else
class View;

namespace solution::detail {
// Without the view subsystem no View object can exist, so these are never reached with a live
// view. A View is a solution::Feature as its single base, found at the start of the object.
inline QString viewId(const View* view)
{
    return view ? reinterpret_cast<const Feature*>(view)->getID() : QString();
}

inline void deleteView(View* view)
{
    delete reinterpret_cast<Feature*>(view);
}
} // namespace solution::detail
#endif
