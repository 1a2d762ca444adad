// SPDX-License-Identifier: MIT
#include "tools/stage/ShapesJson.h"

#include "tools/text/Json.h"

#include <vaultry/foundation/CodePage.h>

#include <array>
#include <cmath>
#include <cstddef>

namespace Tarnex::Report {

namespace {

// In the order of StandInSort.
constexpr std::array<const char*, 8> kSortWords = {
    "static", "door", "light", "container", "creature", "creatures", "item", "items"};

// A thousandth of a unit is nothing to be seen, and few digits are.
double Rounded(float coordinate) {
    constexpr double kParts = 1000.0;
    // No negative zero.
    return std::round(double{coordinate} * kParts) / kParts + 0.0;
}

Json ShapeJson(const StandIn& standIn) {
    const Triangles triangles = TrianglesOf(standIn.shape);
    Json vertices = Json::array();
    for (const Di3Point& vertex : triangles.vertices) {
        for (const float coordinate : {vertex.x, vertex.y, vertex.z}) {
            vertices.push_back(Rounded(coordinate));
        }
    }
    Json faces = Json::array();
    for (const auto& face : triangles.faces) {
        for (const std::uint32_t vertex : face) {
            faces.push_back(vertex);
        }
    }
    Json surfaces = Json::array();
    for (const Surface surface : triangles.surfaces) {
        surfaces.push_back(static_cast<std::size_t>(surface));
    }
    const char* known = kKnownWords.at(static_cast<std::size_t>(standIn.known)).data();
    return {{"id", ToUtf8(standIn.id)},
            {"sort", kSortWords.at(static_cast<std::size_t>(standIn.sort))},
            {"known", standIn.vague ? Json(nullptr) : Json(known)},
            {"vertices", std::move(vertices)},
            {"triangles", std::move(faces)},
            {"surfaces", std::move(surfaces)}};
}

} // namespace

std::string ShapesJson(const StagePlan& stage) {
    Json json = JsonHeader();
    Json& surfaces = json["surfaces"] = Json::array();
    for (const SurfaceLook& look : SurfaceLooks()) {
        surfaces.push_back({{"name", look.name}, {"color", look.color}});
    }
    Json& shapes = json["shapes"] = Json::array();
    for (const auto& [id, standIn] : stage.standIns) {
        if (!standIn.shape.empty()) {
            shapes.push_back(ShapeJson(standIn));
        }
    }
    return JsonText(json);
}

} // namespace Tarnex::Report
