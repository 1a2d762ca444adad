// SPDX-License-Identifier: MIT
// How maps look and what their marks mean.
#pragma once

#include "tools/maps/LevelMap.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

inline constexpr std::int32_t kCell = 24; ///< edge of a cell on a picture

/// The colours of a picture.
enum class MapLook : std::uint8_t {
    Auto,  ///< light, dark on screens that ask for it
    Light, ///< for print
    Dark,
};

/// The mark of one sign.
struct MapMark {
    std::string_view name;    ///< of its definition, and of its class
    std::string_view drawing; ///< around (0, 0), its back to the north
    double reach;             ///< how far it goes from there at most
    bool toScale;             ///< where its size is known it is a rectangle of that size
};

/// By sign.
extern const std::array<MapMark, kMapSigns> kMapMarks;

/// The style sheet of a picture, without its element. Its rules name single classes: the marks are
/// styled where they are used, outside of what they are defined in.
std::string MapStyle(MapLook look);

/// The definitions of the marks and steps.
std::string MapDefinitions();

/// One mark with its meaning; the drawing lies in a cell from (0, 0) to (kCell, kCell).
struct LegendItem {
    std::string_view drawing;
    std::string_view words;
    std::string_view layer; ///< of the drawing that has it, see MapLayer
};

/// What lies over a door or a thing that is locked, and over one with a trap, around its middle. In
/// colours of other marks: a picture without locks is the same as ever.
/// @{
extern const std::string_view kLockDrawing;
extern const std::string_view kTrapDrawing;
/// @}

/// Which marks need to be explained, by their place in the legend.
using LegendNeeds = std::bitset<64>;

/// Those that are on the map.
LegendNeeds LegendOf(const LevelMap& map);

/// The marks that are needed.
std::vector<LegendItem> LegendItems(const LegendNeeds& needs);

} // namespace Tarnex::Report
