// SPDX-License-Identifier: MIT
#include "tools/check/GrammarJson.h"

#include "tools/text/Json.h"

#include <vaultry/catalogue/ConfigFormat.h>

#include <array>
#include <cmath>

namespace Tarnex::Report {

namespace {

// In the order of Stands and of ValueKind.
constexpr std::array<const char*, 4> kPlaces = {"anywhere", "outside", "layout", "theme"};
constexpr std::array<const char*, 5> kKinds = {"text", "list", "whole", "real", "keyword"};

Json BoundJson(double bound) {
    return std::isfinite(bound) ? Json(bound) : Json(nullptr);
}

Json AttributeJson(const AttributeFormat& format) {
    Json json = {{"name", format.name},
                 {"kind", kKinds.at(static_cast<std::size_t>(format.kind))},
                 {"least", BoundJson(format.bounds.least)},
                 {"most", BoundJson(format.bounds.most)},
                 {"otherwise", format.bounds.otherwise}};
    json["default"] = format.initial == nullptr ? Json(nullptr) : Json(format.initial());
    Json& words = json["words"] = Json::array();
    for (const Keyword& keyword : format.keywords) {
        words.push_back(keyword.word);
    }
    return json;
}

Json AttributesJson(ElementClass element) {
    Json json = Json::array();
    for (const AttributeFormat& format : AttributesOf(element)) {
        json.push_back(AttributeJson(format));
    }
    return json;
}

Json ElementJson(const ElementFormat& format) {
    Json json = {{"name", format.name},
                 {"stands", kPlaces.at(static_cast<std::size_t>(format.stands))},
                 {"types", Json::array()},
                 {"attributes", AttributesJson(format.element)}};
    for (const std::string_view type : format.types) {
        json["types"].push_back(type);
    }
    return json;
}

} // namespace

std::string GrammarJson() {
    Json json = JsonHeader();
    Json& elements = json["elements"] = Json::array();
    for (const ElementFormat& format : ElementFormats()) {
        elements.push_back(ElementJson(format));
    }
    json["tile"] = {{"attributes", AttributesJson(ElementClass::Tile)}};
    json["platform-piece"] = {{"attributes", AttributesJson(ElementClass::PlatformTile)}};
    return JsonText(json);
}

} // namespace Tarnex::Report
