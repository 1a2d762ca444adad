// SPDX-License-Identifier: MIT
// One level as a piece of a picture.
#pragma once

#include "tools/maps/LevelMap.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace Tarnex::Report {

/// A part of the drawing that can be shown by itself: the group of class "layer-NAME".
struct MapLayer {
    std::string_view name;
    std::string_view words;
};

/// All of them, in the order in which they are offered.
std::span<const MapLayer> MapLayers();

/// The size of a panel on the picture, margins included.
std::int32_t PanelWidth(const MapOutline& map);
std::int32_t PanelHeight(const MapOutline& map);

/// The drawing of a level from the north-western corner of its grid: grid, the level in layers,
/// scale. Every cell has a title for hovering, unless `listed` is null: pictures in pixels need
/// none. Needs MapDefinitions and MapStyle in the document.
std::string MapDrawing(const LevelMap& map, ListedItems* listed);

/// How far a drawing reaches beyond its grid: at both sides, and below with the scale.
inline constexpr std::int32_t kPanelMargin = 60;
inline constexpr std::int32_t kPanelFoot = 56;

/// An arrow that points north, with its letter, 30 units high.
std::string NorthArrow(double x, double y);

/// The drawing with its title and north arrow.
std::string MapPanel(const LevelMap& map, ListedItems* listed);

} // namespace Tarnex::Report
