// SPDX-License-Identifier: MIT
#include "tools/maps/MapFile.h"

#include "tools/maps/MapHtml.h"
#include "tools/maps/MapSvg.h"
#include "tools/png/RenderPng.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace Tarnex::Report {

namespace {

bool EndsWith(std::string_view path, std::string_view end) {
    return path.size() > end.size() && EqualsNoCase(path.substr(path.size() - end.size()), end);
}

// The largest scale at which the picture can be drawn, rounded down.
double LargestScale(const MapExtent& extent) {
    const double byEdge = Png::kLongestEdge / double(std::max(extent.width, extent.height));
    const double byArea = std::sqrt(Png::kMostPixels / (double(extent.width) * extent.height));
    return std::floor(std::min(byEdge, byArea) * 100.0) / 100.0;
}

void RequireDrawable(const MapExtent& extent, double scale) {
    const double largest = LargestScale(extent);
    if (scale <= largest) {
        return;
    }
    const std::string size =
        Number(extent.width * scale, 0) + " x " + Number(extent.height * scale, 0);
    const std::string help =
        largest >= kSmallestScale ? "use --scale " + Number(largest) + " or SVG" : "use SVG";
    throw MapError("the map as PNG would have " + size + " pixels, which is too large; " + help);
}

} // namespace

std::optional<MapFormat> PictureFormatOf(std::string_view path) {
    if (EndsWith(path, ".svg")) {
        return MapFormat::Svg;
    }
    return EndsWith(path, ".png") ? std::optional(MapFormat::Png) : std::nullopt;
}

void WriteMaps(MapLevels& levels,
               const MapSurvey& survey,
               const MapCaption& caption,
               MapFormat format,
               const MapSettings& settings,
               std::ostream& out) {
    switch (format) {
    case MapFormat::Svg:
        SvgDocument(survey, caption).Write(levels, settings.look, MapTitles::Yes, out);
        break;
    case MapFormat::Png: {
        const SvgDocument document(survey, caption);
        RequireDrawable(document.Extent(), settings.scale);
        const bool dark = settings.look == MapLook::Dark;
        std::ostringstream svg;
        document.Write(levels, dark ? MapLook::Dark : MapLook::Light, MapTitles::No, svg);
        WritePng(std::move(svg).str(), settings.scale, out);
        break;
    }
    case MapFormat::Html:
        WriteHtml(levels, survey, caption, settings.look, out);
        break;
    }
}

} // namespace Tarnex::Report
