// SPDX-License-Identifier: MIT
#include "apps/report/MapSvg.h"

#include "apps/report/MapLegend.h"
#include "apps/report/MapPanel.h"
#include "apps/report/SvgText.h"

#include <algorithm>
#include <cmath>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kMargin = 36;
constexpr std::int32_t kNarrowest = 660; // the legend needs it
constexpr std::int32_t kCaptionLine = 15;
constexpr double kPageShape = 1.7; // width of a page of many levels by its height

constexpr const char* kDocumentEnd = "</svg>\n";

struct PanelPlace {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

std::string DocumentStart(const MapExtent& extent, MapLook look) {
    const std::string width = std::to_string(extent.width);
    const std::string height = std::to_string(extent.height);
    const std::string size = Attribute("width", width) + Attribute("height", height);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
           size + Attribute("viewBox", "0 0 " + width + ' ' + height) + ">\n<style>" +
           MapStyle(look) + "</style>\n" + MapDefinitions() + "<rect class=\"paper\"" + size +
           "/>\n";
}

// About as wide as a page on which all panels have room.
std::int32_t PageWidth(const std::vector<LevelMap>& maps) {
    std::int32_t widest = kNarrowest;
    double area = 0.0;
    for (const LevelMap& map : maps) {
        widest = std::max(widest, PanelWidth(map));
        area += double(PanelWidth(map)) * PanelHeight(map);
    }
    return std::max(widest, static_cast<std::int32_t>(std::sqrt(area * kPageShape)));
}

// In rows from left to right; returns what they take.
MapExtent LayOut(const std::vector<LevelMap>& maps, std::vector<PanelPlace>& places) {
    const std::int32_t most = PageWidth(maps);
    MapExtent extent{kNarrowest, 0};
    std::int32_t x = 0;
    std::int32_t rowHeight = 0;
    for (const LevelMap& map : maps) {
        if (x > 0 && x + PanelWidth(map) > most) {
            extent.height += rowHeight;
            x = 0;
            rowHeight = 0;
        }
        places.push_back({x, extent.height});
        x += PanelWidth(map);
        rowHeight = std::max(rowHeight, PanelHeight(map));
        extent.width = std::max(extent.width, x);
    }
    extent.height += rowHeight;
    return extent;
}

} // namespace

MapExtent WriteSvg(const std::vector<LevelMap>& maps,
                   const MapCaption& caption,
                   MapLook look,
                   std::ostream& out) {
    std::vector<PanelPlace> places;
    MapExtent extent = LayOut(maps, places);
    std::string foot;
    if (maps.empty()) {
        extent.height = 2 * kMargin;
        foot = SvgTextAt("title", kMargin, kMargin, kNoLevels);
    }
    const std::int32_t inside = extent.width - 2 * kMargin;
    std::int32_t legendHeight = 0;
    const std::string legend = MapLegend(maps, inside, legendHeight);
    foot += SvgMoved(kMargin, extent.height, legend);
    extent.height += legendHeight + kCaptionLine;
    for (const std::string& line : CaptionLines(caption, inside)) {
        foot += SvgTextAt("small", kMargin, extent.height, line);
        extent.height += kCaptionLine;
    }
    extent.height += kMargin / 2;
    out << DocumentStart(extent, look);
    // A stream that failed needs no more panels.
    for (std::size_t i = 0; i < maps.size() && out; ++i) {
        out << SvgMoved(places[i].x, places[i].y, MapPanel(maps[i]));
    }
    out << foot << kDocumentEnd;
    return extent;
}

std::string LevelSvg(const LevelMap& map, MapLook look) {
    return DocumentStart({PanelWidth(map), PanelHeight(map)}, look) + MapPanel(map) + kDocumentEnd;
}

} // namespace Tarnex::Report
