// SPDX-License-Identifier: MIT
#include "tools/gallery/Gallery.h"
#include "tools/maps/MapHtml.h"
#include "tools/maps/MapPanel.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/SvgText.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>

#include <string_view>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kAbove = 24; // of a grid

// The page is XML too, so that a mistake in it is found by a parser.
constexpr std::string_view kOpening =
    "<!DOCTYPE html>\n<html lang=\"en\" xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n";

constexpr std::string_view kStyle = R"(:root{color-scheme:light;--page:#fff;--ink:#222;
--faint:#555;--line:#d5d0c4;--link:#6a2fb0}
@media screen and (prefers-color-scheme:dark){:root{color-scheme:dark;--page:#15181c;--ink:#e6e6e6;
--faint:#a8a8a8;--line:#383e46;--link:#c9a6ff}}
*{box-sizing:border-box}
body{margin:0 auto;padding:1rem;background:var(--page);color:var(--ink);
font:15px/1.45 "DejaVu Sans",Verdana,sans-serif}
h1{font-size:1.6rem;margin:0}h2{font-size:1.3rem;margin:2rem 0 .6rem}
h3{font-size:1.05rem;margin:0}p{margin:.3rem 0}a{color:var(--link)}
.faint{color:var(--faint)}.defs{position:absolute}
nav ul,.legend{display:flex;flex-wrap:wrap;gap:.3rem 1.1rem;padding:0;list-style:none}
.legend{font-size:.87rem}.legend li{display:flex;align-items:center;gap:.4rem}
.cards{display:grid;gap:1rem;align-items:start;grid-template-columns:repeat(auto-fill,minmax(min(100%,19rem),1fr))}
article{border:1px solid var(--line);border-radius:4px;padding:.75rem;min-width:0}
.legend svg{overflow:visible}article svg{display:block;width:100%;height:16rem;margin-top:.5rem}
code,li{overflow-wrap:anywhere}
details ul{margin:.4rem 0 0;padding-left:1.1rem;font-size:.87rem}
@media print{article{break-inside:avoid}}
)";

std::string SectionId(std::size_t number) {
    return "section-" + std::to_string(number);
}

std::string Contents(const std::vector<GallerySection>& sections) {
    std::string text = "<nav aria-label=\"Sections\"><ul>\n";
    for (std::size_t i = 0; i < sections.size(); ++i) {
        text += "<li><a" + Attribute("href", '#' + SectionId(i)) + ">" +
                ForMarkup(sections[i].title) + "</a></li>\n";
    }
    return text + "</ul></nav>\n";
}

// What the marks of all pictures mean.
std::string Legend(const std::vector<GallerySection>& sections) {
    LegendNeeds needs;
    for (const GallerySection& section : sections) {
        for (const GalleryCard& card : section.cards) {
            needs |= card.map ? LegendOf(*card.map) : LegendNeeds();
        }
    }
    std::string text = "<ul class=\"legend\">\n";
    for (const LegendItem& item : LegendItems(needs)) {
        text += "<li><svg width=\"24\" height=\"24\" aria-hidden=\"true\">" +
                std::string(item.drawing) + "</svg> " + std::string(item.words) + "</li>\n";
    }
    return text + "</ul>\n";
}

std::string Picture(const LevelMap& map, const std::string& name) {
    const std::string width = std::to_string(PanelWidth(map));
    const std::string height = std::to_string(kAbove + map.height * kCell + kPanelFoot);
    return "<svg role=\"img\"" + Attribute("aria-label", "Map of " + name) +
           Attribute("viewBox", "0 0 " + width + ' ' + height) + "><rect class=\"paper\"" +
           Attribute("width", width) + Attribute("height", height) + "/>\n" +
           SvgMoved(kPanelMargin, kAbove, MapDrawing(map, nullptr)) + "</svg>\n";
}

std::string Places(const std::vector<std::string>& places) {
    std::string text =
        "<details><summary>" + Counted(places.size(), "kind") + " of things</summary><ul>\n";
    for (const std::string& place : places) {
        text += "<li>" + ForMarkup(place) + "</li>\n";
    }
    return text + "</ul></details>\n";
}

std::string Card(const GalleryCard& card) {
    return "<article>\n<h3>" + ForMarkup(card.name) + "</h3>\n" +
           (card.words.empty() ? "" : "<p class=\"faint\">" + ForMarkup(card.words) + "</p>\n") +
           "<p><code>" + ForMarkup(card.option) + "</code></p>\n" +
           (card.map ? Picture(*card.map, card.name) : std::string()) +
           (card.places.empty() ? "" : Places(card.places)) + "</article>\n";
}

} // namespace

void WriteGallery(const std::vector<GallerySection>& sections,
                  const std::string& config,
                  std::ostream& out) {
    const std::string title = "What " + ForMarkup(config) + " offers";
    out << kOpening << kPageHead << "<title>" << title << "</title>\n<style>\n"
        << kStyle << MapStyle(MapLook::Auto) << "</style>\n</head>\n<body>\n<header>\n<h1>" << title
        << "</h1>\n<p class=\"faint\">vaultry " VAULTRY_VERSION
           "; each picture is one small dungeon of many</p>\n"
        << Contents(sections)
        << "</header>\n<svg width=\"0\" height=\"0\" class=\"defs\" aria-hidden=\"true\">"
        << MapDefinitions() << "</svg>\n"
        << Legend(sections) << "<main>\n";
    for (std::size_t i = 0; i < sections.size(); ++i) {
        out << "<section" << Attribute("id", SectionId(i)) << ">\n<h2>"
            << ForMarkup(sections[i].title) << "</h2>\n<div class=\"cards\">\n";
        for (const GalleryCard& card : sections[i].cards) {
            out << Card(card);
        }
        out << "</div>\n</section>\n";
    }
    out << "</main>\n</body>\n</html>\n";
}

} // namespace Tarnex::Report
