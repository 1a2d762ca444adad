// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

// What every dungeon is built with: the first of type Room unless another is chosen.
struct Needed {
    ElementClass elementClass;
    std::string_view typeAttribute;
    const char* what;
    const char* withoutRooms; // what it means when there are caves only
};

constexpr Needed kTileSet = {ElementClass::TileSet,
                             Tile_TsType,
                             "tile set",
                             "Nothing is generated unless --cave-tileset chooses one."};
constexpr Needed kLayout = {ElementClass::Layout,
                            Attrib_Type,
                            "layout",
                            "Nothing is generated unless --cave-template chooses one."};

// Layouts inside others have no type of their own.
bool HasType(const ConfigTree& tree, const Needed& needed, std::string_view type) {
    return std::ranges::any_of(
        tree.OfClass(needed.elementClass), [&](const ConfigElement* element) {
            const ConfigElement* const around = tree.Around(*element);
            const bool inside = around != nullptr && around->element == needed.elementClass;
            return !inside && IsAnyOf(AttributeText(*element, needed.typeAttribute), {type});
        });
}

void CheckNeeded(const ConfigTree& tree, const Needed& needed, Findings& findings) {
    if (tree.All().empty() || HasType(tree, needed, Tile_Room)) {
        return;
    }
    const DocumentPlace& root = tree.All().front().place;
    const std::string what = needed.what;
    if (HasType(tree, needed, Tile_Cave)) {
        findings.Add(Weight::Note, root, "there is no Room " + what, needed.withoutRooms);
    } else {
        findings.Add(Weight::Error, root, "there is no " + what, "Nothing can be generated.");
    }
}

} // namespace

void CheckDefaults(const ConfigTree& tree, Findings& findings) {
    CheckNeeded(tree, kTileSet, findings);
    CheckNeeded(tree, kLayout, findings);
}

} // namespace Tarnex::Report
