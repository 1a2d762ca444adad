// SPDX-License-Identifier: MIT
#include "tools/maps/MapSvg.h"

#include "tools/maps/MapLegend.h"
#include "tools/maps/MapPanel.h"
#include "tools/maps/SvgText.h"

#include <algorithm>
#include <cmath>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kMargin = kPanelMargin;
constexpr std::int32_t kNarrowest = 580; // the legend needs it
constexpr std::int32_t kCaptionLine = 15;
constexpr double kPageShape = 1.7; // width of a page of many levels by its height

constexpr const char* kDocumentEnd = "</svg>\n";

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
std::int32_t PageWidth(const MapSurvey& survey) {
    std::int32_t widest = kNarrowest;
    double area = 0.0;
    for (const SurveyedLevel& level : survey.levels) {
        widest = std::max(widest, PanelWidth(level.outline));
        area += double(PanelWidth(level.outline)) * PanelHeight(level.outline);
    }
    return std::max(widest, static_cast<std::int32_t>(std::sqrt(area * kPageShape)));
}

} // namespace

SvgDocument::SvgDocument(const MapSurvey& survey, const MapCaption& caption) {
    LayOut(survey);
    if (survey.levels.empty()) {
        extent.height = 2 * kMargin;
        foot = SvgTextAt("title", kMargin, kMargin, kNoLevels);
    }
    const std::int32_t inside = extent.width - 2 * kMargin;
    std::int32_t legendHeight = 0;
    const std::string legend = MapLegend(survey.legend, inside, legendHeight);
    foot += SvgMoved(kMargin, extent.height, legend);
    extent.height += legendHeight + kCaptionLine;
    for (const std::string& line : CaptionLines(caption, inside)) {
        foot += SvgTextAt("small", kMargin, extent.height, line);
        extent.height += kCaptionLine;
    }
    extent.height += kMargin / 3;
}

// In rows from left to right.
void SvgDocument::LayOut(const MapSurvey& survey) {
    const std::int32_t most = PageWidth(survey);
    extent = {kNarrowest, 0};
    std::int32_t x = 0;
    std::int32_t rowHeight = 0;
    for (const SurveyedLevel& level : survey.levels) {
        const std::int32_t width = PanelWidth(level.outline);
        if (x > 0 && x + width > most) {
            extent.height += rowHeight;
            x = 0;
            rowHeight = 0;
        }
        places.push_back({x, extent.height});
        x += width;
        rowHeight = std::max(rowHeight, PanelHeight(level.outline));
        extent.width = std::max(extent.width, x);
    }
    extent.height += rowHeight;
}

void SvgDocument::Write(MapLevels& levels,
                        MapLook look,
                        MapTitles titles,
                        std::ostream& out) const {
    ListedItems listed;
    out << DocumentStart(extent, look);
    // A stream that failed needs no more panels.
    for (std::size_t i = 0; i < places.size() && out; ++i) {
        out << SvgMoved(places[i].x,
                        places[i].y,
                        MapPanel(levels.Level(i), titles == MapTitles::Yes ? &listed : nullptr));
    }
    out << foot << kDocumentEnd;
}

std::string LevelSvg(const LevelMap& map, MapLook look) {
    ListedItems listed;
    return DocumentStart({PanelWidth(map), PanelHeight(map)}, look) + MapPanel(map, &listed) +
           kDocumentEnd;
}

} // namespace Tarnex::Report
