// SPDX-License-Identifier: MIT
#include "apps/report/SvgText.h"

#include "apps/report/Json.h"
#include "apps/report/Words.h"

namespace Tarnex::Report {

namespace {

// Paths come from the command line as they are; the JSON library replaces what is no UTF-8.
std::string WellFormed(std::string_view text) {
    const std::string quoted =
        Json(std::string(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
    return Json::parse(quoted).get<std::string>();
}

std::string EscapedByte(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\n':
        return "\n";
    default:
        return {static_cast<unsigned char>(c) < 0x20 || c == '\x7F' ? ' ' : c};
    }
}

} // namespace

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : WellFormed(text)) {
        escaped += EscapedByte(c);
    }
    return escaped;
}

std::string Coordinate(double value) {
    return Number(value, 1);
}

std::string Attribute(std::string_view name, std::string_view value) {
    return ' ' + std::string(name) + "=\"" + Escaped(value) + '"';
}

std::string SvgTextAt(std::string_view type, double x, double y, std::string_view text) {
    return "<text" + (type.empty() ? std::string() : Attribute("class", type)) +
           Attribute("x", Coordinate(x)) + Attribute("y", Coordinate(y)) + '>' + Escaped(text) +
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
