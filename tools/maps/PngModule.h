// SPDX-License-Identifier: MIT
// Pictures as PNG.
#pragma once

#include <ostream>
#include <stdexcept>
#include <string>

namespace Tarnex::Report {

/// Why a map cannot be drawn, in one line that says what helps.
class MapError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Loads the module that draws PNG pictures, once. Throws MapError, which names what to install,
/// when it is not there.
void RequirePngModule();

/// Draws an SVG document as PNG; one of its units is `scale` pixels. Throws MapError when the
/// module is not there, when the picture would be too large, or when drawing failed; whether
/// `out` took the bytes is told by its state.
void WritePng(const std::string& svg, double scale, std::ostream& out);

} // namespace Tarnex::Report
