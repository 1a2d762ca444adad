// SPDX-License-Identifier: MIT
// Checks shared by the grids of the library.
#pragma once

#include <cstddef>
#include <stdexcept>

namespace Tarnex {

/// Throws std::out_of_range when `col` is not a column of a row of `width` cells.
inline void CheckColumn(std::size_t col, std::size_t width) {
    if (col >= width) {
        throw std::out_of_range("invalid vector<T> subscript");
    }
}

} // namespace Tarnex
