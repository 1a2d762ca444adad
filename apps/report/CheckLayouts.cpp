// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>

namespace Tarnex::Report {

namespace {

// The outermost layout around an element, or null.
const ConfigElement* OutermostLayout(const ConfigRecord& record, const ConfigElement& element) {
    const ConfigElement* outermost = nullptr;
    for (std::size_t i = element.parent; i != ConfigElement::kNoParent;
         i = record.elements[i].parent) {
        if (Is(record.elements[i], Layout_Layout)) {
            outermost = &record.elements[i];
        }
    }
    return outermost;
}

void CheckCell(const ConfigElement& col,
               std::string_view type,
               const NameSet& known,
               Findings& findings) {
    for (const std::string& name : ListedNames(col.text)) {
        if (known.contains(name)) {
            continue;
        }
        const bool blank = name.starts_with(' ') || name.ends_with(' ');
        findings.Add(Weight::Error,
                     col,
                     "no " + std::string(type) + " tile set has a tile \"" + name + '"',
                     blank ? "The cell stays without this piece; the blank belongs to the name."
                           : "The cell stays without this piece.",
                     Nearest(name, {known.begin(), known.end()}));
    }
}

} // namespace

void CheckLayouts(const ConfigRecord& record, Findings& findings) {
    const NameSet rooms = TileNames(record, Tile_Room);
    const NameSet caves = TileNames(record, Tile_Cave);
    for (const ConfigElement& element : record.elements) {
        if (!Is(element, Layout_Col)) {
            continue;
        }
        const ConfigElement* layout = OutermostLayout(record, element);
        if (layout == nullptr) {
            continue;
        }
        const bool cave = IsAnyOf(AttributeText(*layout, Attrib_Type), {Tile_Cave});
        // Without a tile set of the type, layouts may be meant for those of the other one.
        const bool useCaves = cave ? !caves.empty() : rooms.empty();
        const NameSet& known = useCaves ? caves : rooms;
        if (!known.empty()) {
            CheckCell(element, useCaves ? Tile_Cave : Tile_Room, known, findings);
        }
    }
}

} // namespace Tarnex::Report
