// SPDX-License-Identifier: MIT
// What the program and the module that draws PNG pictures agree on. The module is loaded only when
// a PNG is asked for, so that nothing else waits for the libraries it needs.
#pragma once

#include <cstddef>

namespace Tarnex::Png {

/// Receives the bytes of a picture; false when they could not be taken.
using TakeBytes = bool (*)(void* context, const unsigned char* bytes, std::size_t size);

/// Draws the SVG document in `svg` (`size` bytes), its units `scale` pixels long, and hands the
/// PNG to `take` with `context`. Returns null, or why that failed; the text lives on.
using RenderPng =
    const char* (*)(const char* svg, std::size_t size, double scale, TakeBytes take, void* context);

/// The function's name in the module; it changes with the agreement.
inline constexpr const char* kRenderPng = "VaultryRenderPng1";

/// The longest edge of a picture. [pixels]
inline constexpr int kLongestEdge = 32767;
/// The most that a picture holds. [pixels]
inline constexpr double kMostPixels = 100'000'000;

} // namespace Tarnex::Png
