// SPDX-License-Identifier: MIT
#include <vaultry/output/RGBColor.h>

namespace Tarnex {

RGBColor::RGBColor(std::int32_t red, std::int32_t green, std::int32_t blue)
    : r(red), g(green), b(blue) {}

void RGBColor::Write(std::ostream& stream) {
    WriteInt(stream, static_cast<std::int32_t>(Word()));
}

std::uint32_t RGBColor::Word() const {
    const auto channel = [](std::int32_t value) {
        return static_cast<std::uint32_t>(value) & 0xFFU;
    };
    return channel(r) | channel(g) << 8 | channel(b) << 16;
}

} // namespace Tarnex
