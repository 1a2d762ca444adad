// SPDX-License-Identifier: MIT
// The small pieces that SVG and HTML are put together from.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Tarnex::Report {

/// A number as it stands in a picture, the same in every locale, with at most one decimal.
std::string Coordinate(double value);

/// ` name="value"`, escaped.
std::string Attribute(std::string_view name, std::string_view value);

/// A text at a place; `type` is its class, which may be empty.
std::string SvgTextAt(std::string_view type, double x, double y, std::string_view text);

/// How wide a text in bold letters of that height is in the font of pictures.
double BoldWidth(std::string_view text, double size);

/// A path of a class; nothing for one without data.
std::string SvgPath(std::string_view type, std::string_view data);

/// A drawing of the definitions, put at a place. `more` are further attributes.
std::string SvgUse(std::string_view symbol, double x, double y, std::string_view more);

/// A group of a class; nothing for one without content.
std::string SvgGroup(std::string_view type, std::string_view content);

/// What `content` draws, moved.
std::string SvgMoved(double x, double y, std::string_view content);

} // namespace Tarnex::Report
