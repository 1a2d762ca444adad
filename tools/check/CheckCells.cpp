// SPDX-License-Identifier: MIT
#include "tools/check/DrawingRules.h"

#include <algorithm>

namespace Tarnex::Report {

namespace {

// A door or frame turned to another side.
std::string Turned(TileKind fitting, TileDirT side) {
    const Side& to = Sides().at(SideIndex(side));
    const bool door = fitting == Sides().at(SideIndex(fitting.Dir())).door;
    return std::string((door ? to.door : to.doorjamb).Name());
}

void CheckFitting(const DrawnCell& cell,
                  const CellText& text,
                  const std::string& name,
                  Findings& findings) {
    const TileKind fitting = TileKind::Of(name);
    const auto* const doorway = std::ranges::find(cell.shape.edges, Edge::Doorway);
    const bool other = doorway != cell.shape.edges.end();
    const std::string needed(Sides().at(SideIndex(fitting.Dir())).doorway.Name());
    const bool turn = other && ShapeOf(TileKind::Of(text.piece)).has_value();
    findings.Add(
        Weight::Warning,
        cell.col->place,
        name + " stands in a cell without " + needed,
        turn ? "It stands in the open or in a wall. It belongs on the side of the doorway."
             : "It stands in the open or in a wall. A door needs its doorway, named in the same "
               "cell.",
        turn ? Turned(fitting, static_cast<TileDirT>(doorway - cell.shape.edges.begin())) : needed);
}

// A door belongs in a doorway of the same cell; one finding tells of all in it.
void CheckFittings(const DrawnCell& cell, const CellText& text, Findings& findings) {
    const bool floor = ShapeOf(TileKind::Of(text.piece)).has_value();
    const auto wrong = std::ranges::find_if(text.names, [&](const std::string& name) {
        const TileDirT side = FittingOf(TileKind::Of(name));
        return side != DirNone && (!floor || cell.shape.On(side) != Edge::Doorway);
    });
    if (wrong != text.names.end()) {
        CheckFitting(cell, text, *wrong, findings);
    }
}

} // namespace

std::string WithPiece(const CellText& cell, TileKind piece, const NameSet& tiles) {
    std::string all(piece.Name());
    const TileDirT side = DoorwayOf(piece);
    for (const std::string& name : cell.names) {
        const TileKind kind = TileKind::Of(name);
        const std::string half = std::string(piece.Name()) + "_2";
        if (FittingOf(kind) != DirNone) {
            all += side == DirNone ? "" : ',' + Turned(kind, side);
        } else if (!kind.IsKnown() && tiles.contains(name)) {
            all += ',' + name;
        } else if (name.find("_2") != std::string::npos && tiles.contains(half)) {
            all += ',' + half;
        }
    }
    return all;
}

void CheckCells(const DrawnLayout& drawn, Findings& findings) {
    for (const DrawnCell& cell : drawn.drawing.Cells()) {
        const CellText text = ReadCell(*cell.col);
        CheckFittings(cell, text, findings);
        if (!text.second.empty()) {
            findings.Add(Weight::Warning,
                         cell.col->place,
                         text.piece + " and " + text.second + " stand in one cell",
                         "Each brings a floor of its own; they stand in each other. Leave one out.",
                         text.piece);
        }
    }
}

} // namespace Tarnex::Report
