#pragma once

#include <optional>

namespace utility {

/// The suite's optional value: std::optional under the name the suite's interfaces use.
template <typename T> using Optional = std::optional<T>;

} // namespace utility
