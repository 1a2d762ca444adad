// SPDX-License-Identifier: MIT
#include "tools/check/DrawingRules.h"

#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>
#include <limits>
#include <map>
#include <set>

namespace Tarnex::Report {

namespace {

// What is beyond has the same causes.
constexpr std::size_t kMostTold = 4;
constexpr std::size_t kMostEnds = 64;

using Part = std::vector<const DrawnCell*>;

std::vector<Part> PartsOf(const DrawnLayout& drawn) {
    std::map<std::size_t, Part> parts;
    const std::vector<DrawnCell>& cells = drawn.drawing.Cells();
    for (std::size_t i = 0; i < cells.size(); ++i) {
        parts[drawn.survey.part[i]].push_back(&cells[i]);
    }
    std::vector<Part> list;
    list.reserve(parts.size());
    for (auto& [number, part] : parts) {
        list.push_back(std::move(part));
    }
    return list;
}

bool IsInside(const ConfigTree& tree, const ConfigElement* layout, const ConfigElement& outer) {
    while (layout != nullptr && layout != &outer) {
        layout = tree.Around(*layout);
    }
    return layout != nullptr;
}

// The innermost layout that holds all of a part.
const ConfigElement* LayoutAround(const ConfigTree& tree, const Part& part) {
    std::set<const ConfigElement*> layouts;
    for (const DrawnCell* cell : part) {
        layouts.insert(cell->layout);
    }
    const ConfigElement* outer = part.front()->layout;
    while (!std::ranges::all_of(
        layouts, [&](const ConfigElement* layout) { return IsInside(tree, layout, *outer); })) {
        outer = tree.Around(*outer);
    }
    return outer;
}

// Sides that lead out, those of the layout and those of the others.
struct Ends {
    std::vector<OpenSide> own;
    std::vector<OpenSide> others;
};

Ends EndsOf(const DrawnLayout& drawn, const ConfigElement& layout) {
    Ends ends;
    for (const auto* const sides : {&drawn.survey.ends, &drawn.survey.gaps}) {
        for (const OpenSide& open : *sides) {
            const bool leads = Leads(open.cell->shape.On(open.side));
            auto& list = IsInside(drawn.tree, open.cell->layout, layout) ? ends.own : ends.others;
            if (leads && list.size() < kMostEnds) {
                list.push_back(open);
            }
        }
    }
    return ends;
}

// A move of a layout, in parts of a cell; along few axes and short ones come first.
using Move = std::array<std::int64_t, 3>;

std::pair<int, std::int64_t> CostOf(const Move& move) {
    std::pair<int, std::int64_t> cost{0, 0};
    for (const std::int64_t along : move) {
        cost.first += along != 0 ? 1 : 0;
        cost.second += std::abs(along);
    }
    return cost;
}

// The shortest move of a layout after which one of its ends meets one of the others.
std::optional<Move> MoveOf(const Ends& ends) {
    std::optional<Move> best;
    for (const OpenSide& own : ends.own) {
        for (const OpenSide& other : ends.others) {
            const Move move = {other.beyond.x - own.cell->at.x,
                               other.beyond.y - own.cell->at.y,
                               other.beyond.z - own.beyond.z};
            if (own.side == Opposite(other.side) && (!best || CostOf(move) < CostOf(*best))) {
                best = move;
            }
        }
    }
    return best;
}

void TellLayout(const DrawnLayout& drawn, const ConfigElement& layout, Findings& findings) {
    constexpr std::array kOffsets = {Attrib_OffsetX, Attrib_OffsetY, Attrib_OffsetZ};
    const std::optional<Move> move = MoveOf(EndsOf(drawn, layout));
    DocumentPlace place = layout.place;
    std::string nearest;
    for (std::size_t axis = 0; move && CostOf(*move).first == 1 && axis < kOffsets.size(); ++axis) {
        if (move->at(axis) != 0) {
            const double cells = static_cast<double>(move->at(axis)) / Spot::kCell;
            place = PlaceOf(layout, kOffsets.at(axis));
            nearest = std::string(kOffsets.at(axis)) + "=\"" +
                      Number(RealOf(layout, kOffsets.at(axis)) + cells) + '"';
        }
    }
    findings.Add(
        Weight::Warning,
        place,
        "no way leads to " + Titled(layout, Attrib_LayoutName),
        "Nobody gets there. Let a doorway, hall or stairs of it meet one of the others, at "
        "the same height: offsets are counted in cells, OffsetY to the south.",
        nearest);
}

void TellCells(const DrawnLayout& drawn, const Part& part, Findings& findings) {
    const auto end = std::ranges::find_if(drawn.survey.ends, [&part](const OpenSide& open) {
        return std::ranges::find(part, open.cell) != part.end();
    });
    const DrawnCell& cell = end != drawn.survey.ends.end() ? *end->cell : *part.front();
    findings.Add(Weight::Warning,
                 cell.col->place,
                 "no way leads from here to the rest of " +
                     Titled(*cell.layout, Attrib_LayoutName) + ", " + Counted(part.size(), "cell") +
                     " in all",
                 "Nobody gets there. Draw a doorway on both sides of a wall between the two, or a "
                 "hall from one doorway to the other.");
}

// Where one comes in, or the greatest: all others are measured by it.
std::size_t MainOf(const DrawnLayout& drawn, const std::vector<Part>& parts) {
    std::size_t main = 0;
    std::pair<bool, std::size_t> most{false, 0};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool outer = std::ranges::any_of(
            parts[i], [&](const DrawnCell* cell) { return cell->layout == &drawn.layout; });
        if (std::pair(outer, parts[i].size()) > most) {
            most = {outer, parts[i].size()};
            main = i;
        }
    }
    return main;
}

void CheckParts(const DrawnLayout& drawn, Findings& findings) {
    const std::vector<Part> parts = PartsOf(drawn);
    const std::size_t main = MainOf(drawn, parts);
    std::set<const ConfigElement*> told;
    for (std::size_t i = 0; i < parts.size() && told.size() < kMostTold; ++i) {
        const ConfigElement* const layout = LayoutAround(drawn.tree, parts[i]);
        if (i == main || !told.insert(layout).second) {
            continue;
        }
        if (layout == &drawn.layout) {
            TellCells(drawn, parts[i], findings);
        } else {
            TellLayout(drawn, *layout, findings);
        }
    }
}

} // namespace

void CheckWays(const DrawnLayout& drawn, Findings& findings) {
    if (drawn.drawing.Cells().empty()) {
        return;
    }
    CheckParts(drawn, findings);
    if (drawn.survey.ends.empty()) {
        findings.Add(Weight::Note,
                     drawn.layout.place,
                     "no doorway leads out of " + Titled(drawn.layout, Attrib_LayoutName),
                     "Random levels cut doors into its walls. As a fixed level it has no way in: "
                     "draw a doorway in an outer wall.");
    }
}

} // namespace Tarnex::Report
