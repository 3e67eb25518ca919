#pragma once

// The solution registries keep views by id and delete the views they own; both need the complete
// View class, which the view subsystem declares.
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
