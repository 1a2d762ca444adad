// SPDX-License-Identifier: MIT
#include "tools/maps/SvgText.h"

#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>

#include <array>

namespace Tarnex::Report {

std::string Coordinate(double value) {
    return Number(value, 1);
}

std::string Attribute(std::string_view name, std::string_view value) {
    return ' ' + std::string(name) + "=\"" + ForMarkup(value) + '"';
}

std::string SvgTextAt(std::string_view type, double x, double y, std::string_view text) {
    return "<text" + (type.empty() ? std::string() : Attribute("class", type)) +
           Attribute("x", Coordinate(x)) + Attribute("y", Coordinate(y)) + '>' + ForMarkup(text) +
           "</text>\n";
}

double BoldWidth(std::string_view text, double size) {
    // DejaVu Sans Bold, from the blank on. [hundredths of the size]
    static constexpr std::array<std::uint8_t, 95> kAdvances = {
        35, 46,  52, 84, 70, 100, 87, 31,  46, 46, 52, 84, 38, 42,  38, 37, 70, 70,  70,
        70, 70,  70, 70, 70, 70,  70, 40,  40, 84, 84, 84, 58, 100, 77, 76, 73, 83,  68,
        68, 82,  84, 37, 37, 77,  64, 100, 84, 85, 73, 85, 77, 72,  68, 81, 77, 110, 77,
        72, 73,  46, 37, 46, 84,  50, 50,  67, 72, 59, 72, 68, 44,  72, 71, 34, 34,  67,
        34, 104, 71, 69, 72, 72,  49, 60,  48, 71, 65, 92, 65, 65,  58, 71, 37, 71,  84};
    constexpr unsigned kOther = 84; // arrows and capitals of other scripts
    unsigned width = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const std::size_t number = byte - std::size_t{' '};
        if (number < kAdvances.size()) {
            width += kAdvances[number];
        } else if ((byte & 0xC0U) != 0x80) {
            width += byte < 0xE3 ? kOther : 100; // scripts of square letters begin there
        }
    }
    return width * size / 100.0;
}

std::string SvgPath(std::string_view type, std::string_view data) {
    return data.empty()
               ? std::string()
               : "<path" + Attribute("class", type) + " d=\"" + std::string(data) + "\"/>\n";
}

std::string SvgUse(std::string_view symbol, double x, double y, std::string_view more) {
    return "<use href=\"#" + std::string(symbol) + '"' + Attribute("x", Coordinate(x)) +
           Attribute("y", Coordinate(y)) + std::string(more) + "/>\n";
}

std::string SvgGroup(std::string_view type, std::string_view content) {
    return content.empty()
               ? std::string()
               : "<g" + Attribute("class", type) + ">\n" + std::string(content) + "</g>\n";
}

std::string SvgMoved(double x, double y, std::string_view content) {
    return "<g transform=\"translate(" + Coordinate(x) + ' ' + Coordinate(y) + ")\">\n" +
           std::string(content) + "</g>\n";
}

} // namespace Tarnex::Report
