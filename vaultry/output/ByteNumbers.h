// SPDX-License-Identifier: MIT
// Numbers as the game's files hold them: the lowest byte first.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Tarnex {

/// The number in the four bytes from `place` on, which are there.
/// @{

inline std::uint32_t WordAt(std::string_view bytes, std::size_t place) {
    std::uint32_t word = 0;
    for (std::size_t i = 4; i-- > 0;) {
        word = word << 8 | static_cast<unsigned char>(bytes[place + i]);
    }
    return word;
}

inline std::int32_t IntAt(std::string_view bytes, std::size_t place) {
    return static_cast<std::int32_t>(WordAt(bytes, place));
}

inline float FloatAt(std::string_view bytes, std::size_t place) {
    return std::bit_cast<float>(WordAt(bytes, place));
}

/// @}

} // namespace Tarnex
