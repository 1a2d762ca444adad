// SPDX-License-Identifier: MIT
// Maps as pictures.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/MapSurvey.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// The size of a picture, in its units.
struct MapExtent {
    std::int32_t width;
    std::int32_t height;
};

/// Whether the cells of a picture say what is in them.
enum class MapTitles : std::uint8_t { Yes, No };

/// The levels as one SVG document: a panel for each level and a legend below all.
class SvgDocument {
public:
    SvgDocument(const MapSurvey& survey, const MapCaption& caption);

    const MapExtent& Extent() const { return extent; }

    /// Writes it. The levels are those of the survey. MapLook::Auto follows the screen; print is
    /// light. Hovering over a cell names what is there, unless titles are not wanted.
    void Write(MapLevels& levels, MapLook look, MapTitles titles, std::ostream& out) const;

private:
    struct PanelPlace {
        std::int32_t x = 0;
        std::int32_t y = 0;
    };

    void LayOut(const MapSurvey& survey);

    MapExtent extent{};
    std::vector<PanelPlace> places; // of the levels
    std::string foot;
};

/// One level alone as an SVG document, without legend and caption.
std::string LevelSvg(const LevelMap& map, MapLook look);

} // namespace Tarnex::Report
