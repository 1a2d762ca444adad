// SPDX-License-Identifier: MIT
// A colour of a cell's light.
#pragma once

#include <vaultry/output/Element.h>

namespace Tarnex {

/// A colour of three channels from 0 to 255, written as four bytes: r, g, b, 0. Values are kept as
/// they are given, and cut to their low byte only where they are written.
class VAULTRY_API RGBColor : public Element {
public:
    std::int32_t r = 0; ///< red
    std::int32_t g = 0; ///< green
    std::int32_t b = 0; ///< blue

    /// Black.
    RGBColor() = default;
    /// The colour of these channels; of values out of range the low byte counts.
    RGBColor(std::int32_t red, std::int32_t green, std::int32_t blue);

    /// Writes the four bytes.
    void Write(std::ostream& stream) override;

    /// The colour as one word of the file: the low byte of each channel, r lowest.
    std::uint32_t Word() const;
};

} // namespace Tarnex
