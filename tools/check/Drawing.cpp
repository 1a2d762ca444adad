// SPDX-License-Identifier: MIT
#include "tools/check/Drawing.h"

#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>
#include <cmath>

namespace Tarnex::Report {

namespace {

// Beyond these nothing meets; sums of them do not overflow.
constexpr double kFarthest = 1e6;

constexpr int kWidest = 1024; // of the layouts that are read
constexpr std::size_t kMostBlanks = 1'000'000;

std::int64_t Parts(double cells) {
    const double held = std::isnan(cells) ? 0 : std::clamp(cells, -kFarthest, kFarthest);
    return std::llround(held * static_cast<double>(Spot::kCell));
}

// A second kind of the same piece, such as HallNS_2, that a tile set places with the first.
bool AreHalves(TileKind one, TileKind other) {
    const std::string_view a = one.Name().substr(0, one.Name().find("_2"));
    const std::string_view b = other.Name().substr(0, other.Name().find("_2"));
    return a == b && !(one == other);
}

// Where two pieces stand in each other, what closes or leads through counts.
Edge Stronger(Edge one, Edge other) {
    const auto rank = [](Edge edge) {
        return edge == Edge::Floor ? 0 : (edge == Edge::Closed ? 1 : 2);
    };
    return rank(other) > rank(one) ? other : one;
}

void AddPiece(CellText& cell, const std::string& name, const CellShape& shape, TileKind& first) {
    if (!first.IsKnown()) {
        first = TileKind::Of(name);
        cell.piece = name;
        cell.shape = shape;
        return;
    }
    if (cell.second.empty() && !AreHalves(first, TileKind::Of(name))) {
        cell.second = name;
    }
    for (std::size_t side = 0; side < shape.edges.size(); ++side) {
        cell.shape.edges.at(side) = Stronger(cell.shape.edges.at(side), shape.edges.at(side));
    }
}

// Without any floor the cell may be anything, but a door tells of the doorway that it belongs in.
CellShape Floorless(const std::vector<std::string>& names) {
    CellShape shape;
    shape.edges.fill(Edge::Any);
    const bool fittings = std::ranges::all_of(
        names, [](const std::string& name) { return FittingOf(TileKind::Of(name)) != DirNone; });
    if (fittings && !names.empty()) {
        shape.edges.fill(Edge::Floor);
        shape.edges.at(SideIndex(FittingOf(TileKind::Of(names.front())))) = Edge::Doorway;
    }
    return shape;
}

} // namespace

Spot Beside(const Spot& at, TileDirT side) {
    const DiPos& step = Sides().at(SideIndex(side)).step;
    return {at.x + step.x * Spot::kCell, at.y + step.y * Spot::kCell, at.z};
}

bool Overlap(const Spot& lower, const Spot& upper) {
    return lower.x == upper.x && lower.y == upper.y && upper.z - lower.z < Spot::kCell;
}

CellText ReadCell(const ConfigElement& col) {
    CellText cell;
    cell.names = ListedNames(col.text);
    TileKind first;
    for (const std::string& name : cell.names) {
        if (const std::optional<CellShape> shape = ShapeOf(TileKind::Of(name))) {
            AddPiece(cell, name, *shape, first);
        }
    }
    if (!first.IsKnown()) {
        cell.shape = Floorless(cell.names);
        cell.piece = cell.names.empty() ? "" : cell.names.front();
    }
    return cell;
}

Elements RowsOf(const ConfigTree& tree, const ConfigElement& layout) {
    Elements rows = tree.Inside(layout);
    std::erase_if(rows, [](const auto* inside) { return inside->element != ElementClass::Row; });
    return rows;
}

Elements ColsOf(const ConfigTree& tree, const ConfigElement& row) {
    Elements cols = tree.Inside(row);
    std::erase_if(cols, [](const auto* inside) { return inside->element != ElementClass::Col; });
    return cols;
}

Spot OffsetOf(const ConfigElement& layout) {
    return {Parts(RealOf(layout, Attrib_OffsetX)),
            Parts(RealOf(layout, Attrib_OffsetY)),
            Parts(RealOf(layout, Attrib_OffsetZ))};
}

const ConfigAttribute* FarOffset(const ConfigElement& layout, const ConfigElement& around) {
    constexpr double kGap = 16;
    const auto extent = [&](std::string_view size) {
        return kGap + std::max(WholeOf(layout, size), WholeOf(around, size));
    };
    const std::array<std::pair<std::string_view, double>, 3> limits = {
        {{Attrib_OffsetX, extent(Attrib_Width)},
         {Attrib_OffsetY, extent(Attrib_Height)},
         {Attrib_OffsetZ, kGap}}};
    for (const auto& [name, limit] : limits) {
        if (std::abs(RealOf(layout, name)) >= limit) {
            return FindAttribute(layout, name);
        }
    }
    return nullptr;
}

Drawing::Drawing(const ConfigTree& tree,
                 const ConfigElement& layout,
                 const std::vector<double>& heights) {
    for (const double height : heights) {
        rises.push_back(Parts(height));
    }
    AddLayout(tree, layout, {});
    std::ranges::stable_sort(cells, {}, &DrawnCell::at);
    std::ranges::stable_sort(blanks, {}, &std::pair<Spot, const ConfigElement*>::first);
}

void Drawing::AddLayout(const ConfigTree& tree, const ConfigElement& layout, const Spot& corner) {
    Spot at = corner;
    for (const ConfigElement* row : RowsOf(tree, layout)) {
        AddRow(tree, *row, layout, at);
        at.y += Spot::kCell;
    }
    for (const ConfigElement* inside : tree.Inside(layout)) {
        if (inside->element == ElementClass::Layout && FarOffset(*inside, layout) == nullptr) {
            const Spot offset = OffsetOf(*inside);
            AddLayout(
                tree, *inside, {corner.x + offset.x, corner.y + offset.y, corner.z + offset.z});
        }
    }
}

void Drawing::AddRow(const ConfigTree& tree,
                     const ConfigElement& row,
                     const ConfigElement& layout,
                     Spot at) {
    const std::int64_t end =
        at.x + std::clamp(WholeOf(layout, Attrib_Width), 0, kWidest) * Spot::kCell;
    for (const ConfigElement* col : ColsOf(tree, row)) {
        const CellText text = ReadCell(*col);
        if (text.names.empty()) {
            blanks.emplace_back(at, col);
        } else {
            cells.push_back({col, &layout, at, text.shape});
        }
        at.x += Spot::kCell;
    }
    for (; at.x < end && blanks.size() < kMostBlanks; at.x += Spot::kCell) {
        blanks.emplace_back(at, &row);
    }
}

std::span<const DrawnCell> Drawing::Column(const Spot& at) const {
    constexpr std::ptrdiff_t kMost = 32; // more than that say nothing new
    const auto first =
        std::ranges::lower_bound(cells, std::pair(at.x, at.y), {}, [](const DrawnCell& c) {
            return std::pair(c.at.x, c.at.y);
        });
    auto end = first;
    while (end != cells.end() && end - first < kMost && end->at.x == at.x && end->at.y == at.y) {
        ++end;
    }
    return {first, end};
}

bool Drawing::Has(const Spot& at) const {
    return std::ranges::binary_search(cells, at, {}, &DrawnCell::at);
}

const ConfigElement* Drawing::EmptyAt(const Spot& at) const {
    const auto found =
        std::ranges::lower_bound(blanks, at, {}, &std::pair<Spot, const ConfigElement*>::first);
    return found == blanks.end() || found->first != at ? nullptr : found->second;
}

std::vector<std::int64_t> Drawing::HeightsOf(const DrawnCell& cell, TileDirT side) const {
    if (side != cell.shape.farSide) {
        return {cell.at.z};
    }
    std::vector<std::int64_t> heights;
    for (const std::int64_t rise : rises) {
        heights.push_back(cell.at.z + cell.shape.climbs * rise);
    }
    return heights;
}

bool Drawing::Climbs(std::int64_t height) const {
    return std::ranges::find(rises, height) != rises.end();
}

std::optional<Edge> Drawing::Seen(const DrawnCell& cell, TileDirT side, std::int64_t height) const {
    const Edge edge = cell.shape.On(side);
    if (edge == Edge::Any) {
        return edge;
    }
    if (side != cell.shape.farSide) {
        return cell.at.z == height ? std::optional(edge) : std::nullopt;
    }
    if (std::ranges::count(HeightsOf(cell, side), height) != 0) {
        return edge;
    }
    return cell.at.z == height ? std::optional(Edge::Closed) : std::nullopt;
}

} // namespace Tarnex::Report
