// SPDX-License-Identifier: MIT
// Where the layouts inside a layout stand, and how large all of them are.
#include "tools/check/DrawingRules.h"

#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <map>

namespace Tarnex::Report {

namespace {

void TellFar(const ConfigElement& layout,
             const ConfigAttribute& offset,
             int tileSize,
             Findings& findings) {
    const double cells = ParseReal(offset.value);
    findings.Add(Weight::Warning,
                 offset.place,
                 Titled(layout, Attrib_LayoutName) + " stands " + Number(std::abs(cells)) +
                     " cells away, " + Number(std::abs(cells) * tileSize) + " units",
                 "Nobody gets there. Offsets of layouts are counted in cells, not in units.",
                 Number(cells / std::max(tileSize, 1), 4));
}

void CheckCount(const ConfigElement& layout,
                std::string_view attribute,
                const char* of,
                std::size_t drawn,
                Findings& findings) {
    const int size = WholeOf(layout, attribute);
    if (drawn == 0 || size <= 0 || static_cast<std::size_t>(size) == drawn) {
        return;
    }
    const bool given = FindAttribute(layout, attribute) != nullptr;
    const bool more = static_cast<std::size_t>(size) < drawn;
    const std::string name(attribute);
    findings.Add(more ? Weight::Error : Weight::Warning,
                 PlaceOf(layout, attribute),
                 Titled(layout, Attrib_LayoutName) + (given ? " has a " : " has no ") + name +
                     (given ? " of " : ", which counts as ") + std::to_string(size) + ", but " +
                     Counted(drawn, of),
                 more ? "What is drawn beyond it is dropped."
                      : "The rest stays empty, and random levels keep room for it.",
                 name + "=\"" + std::to_string(drawn) + '"');
}

// The loader counts them anew, from the first, after each layout inside.
void CheckOrder(const ConfigTree& tree, const ConfigElement& layout, Findings& findings) {
    const ConfigElement* nested = nullptr;
    for (const ConfigElement* inside : tree.Inside(layout)) {
        if (inside->element == ElementClass::Layout) {
            nested = inside;
        } else if (nested != nullptr && inside->element == ElementClass::Row) {
            findings.Add(Weight::Error,
                         inside->place,
                         "a row of " + Titled(layout, Attrib_LayoutName) +
                             " stands behind a layout inside it",
                         "It overwrites the first row. Move the inner layout, from line " +
                             std::to_string(nested->place.line) + ", behind the last row.");
            return;
        }
    }
}

using Layouts = std::pair<const ConfigElement*, const ConfigElement*>;

// The cells in which two layouts stand in each other, at less than the height of a cell.
std::map<Layouts, std::size_t> Overlaps(Drawing& drawing) {
    std::map<Layouts, std::size_t> counts;
    std::vector<DrawnCell>& cells = drawing.Cells();
    for (std::size_t i = 1; i < cells.size(); ++i) {
        DrawnCell& lower = cells[i - 1];
        DrawnCell& upper = cells[i];
        if (Overlap(lower.at, upper.at)) {
            ++counts[std::minmax(lower.layout, upper.layout)];
            lower.shape.edges.fill(Edge::Any);
            upper.shape.edges.fill(Edge::Any);
        }
    }
    return counts;
}

} // namespace

void CheckOffsets(const ConfigTree& tree,
                  const ConfigElement& layout,
                  int tileSize,
                  Findings& findings) {
    for (const ConfigElement* inside : tree.Inside(layout)) {
        if (inside->element == ElementClass::Layout) {
            if (const ConfigAttribute* offset = FarOffset(*inside, layout)) {
                TellFar(*inside, *offset, tileSize, findings);
            }
            CheckOffsets(tree, *inside, tileSize, findings);
        }
    }
}

void CheckOverlaps(Drawing& drawing, Findings& findings) {
    constexpr std::size_t kMostTold = 12;
    std::size_t told = 0;
    for (const auto& [layouts, count] : Overlaps(drawing)) {
        if (++told > kMostTold) {
            return;
        }
        const auto& [outer, inner] = layouts; // in document order
        findings.Add(Weight::Warning,
                     inner->place,
                     Titled(*inner, Attrib_LayoutName) + " stands in " +
                         Titled(*outer, Attrib_LayoutName) + " on line " +
                         std::to_string(outer->place.line) + ", in " + Counted(count, "cell"),
                     "Walls and floors run through each other. Move it by its offsets: OffsetX "
                     "counts columns to the east, OffsetY rows to the south, OffsetZ heights of a "
                     "cell.");
    }
}

void CheckSize(const ConfigTree& tree, const ConfigElement& layout, Findings& findings) {
    const Elements rows = RowsOf(tree, layout);
    std::size_t longest = 0;
    for (const ConfigElement* row : rows) {
        longest = std::max(longest, ColsOf(tree, *row).size());
    }
    for (const std::string_view name : {Attrib_Width, Attrib_Height}) {
        if (WholeOf(layout, name) == 0) {
            findings.Add(Weight::Warning,
                         PlaceOf(layout, name),
                         Titled(layout, Attrib_LayoutName) + " has a " + std::string(name) +
                             " of 0",
                         "The layout has no cells.");
        }
    }
    CheckCount(layout, Attrib_Width, "column", longest, findings);
    CheckCount(layout, Attrib_Height, "row", rows.size(), findings);
    CheckOrder(tree, layout, findings);
}

} // namespace Tarnex::Report
