#pragma once

#include <optional>

namespace utility {

template <typename T> using Optional = std::optional<T>;

} // namespace utility
