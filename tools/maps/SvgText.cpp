// SPDX-License-Identifier: MIT
#include "tools/maps/SvgText.h"

#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>

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

std::string SvgPath(std::string_view type, std::string_view data) {
    return data.empty()
               ? std::string()
               : "<path" + Attribute("class", type) + " d=\"" + std::string(data) + "\"/>\n";
}

std::string SvgUse(std::string_view symbol, double x, double y) {
    return "<use href=\"#" + std::string(symbol) + '"' + Attribute("x", Coordinate(x)) +
           Attribute("y", Coordinate(y)) + "/>\n";
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
