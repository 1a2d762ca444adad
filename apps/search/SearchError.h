// SPDX-License-Identifier: MIT
// What is wrong with what a search was asked for.
#pragma once

#include <stdexcept>

namespace Tarnex::Search {

/// A mistake in a condition, an order, a range of seeds or a table, in one line.
class SearchError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace Tarnex::Search
