// SPDX-License-Identifier: MIT
#include "tools/check/DrawingRules.h"

#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>
#include <map>

namespace Tarnex::Report {

namespace {

constexpr std::array<const char*, 4> kSideNames = {"north", "south", "east", "west"};
constexpr std::array<const char*, 4> kEdgeWords = {
    "is closed", "is open", "has a doorway", "leads on"};

// What is beyond has the same causes.
constexpr std::size_t kMostTold = 12;

constexpr const char* kOutOfLevel =
    "One sees and falls out of the level there. Turn or change the piece, or draw what is missing "
    "beside it.";
constexpr const char* kAtWall =
    "Nobody gets through there. Turn or change one of the two, or move them apart.";
constexpr const char* kBackOfWall =
    "Walls have a face on one side only: there is a gap to look through. Turn or change one of "
    "the two.";
constexpr const char* kEmptyPlace =
    "One sees and falls out of the level there. Draw the piece that is missing.";

// What does not fit about one cell.
struct Misfit {
    TileDirT side = DirNone;
    Edge edge = Edge::Closed; // of the cell itself
    const DrawnCell* other = nullptr;
    Edge otherEdge = Edge::Closed;
    const ConfigElement* empty = nullptr; // without another: what leaves the place empty
};

using Misfits = std::map<const DrawnCell*, std::vector<Misfit>>;
using Faced = std::map<Spot, std::vector<OpenSide>>;

const char* WordOf(Edge edge) {
    return kEdgeWords.at(static_cast<std::size_t>(edge));
}

std::string PieceOn(const DrawnCell& cell) {
    return ReadCell(*cell.col).piece + " on line " + std::to_string(cell.col->place.line);
}

// "north", "north and south", "north, south and east".
std::string SideWords(const std::vector<TileDirT>& sides) {
    std::string words;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        words += i == 0 ? "" : (i + 1 == sides.size() ? " and " : ", ");
        words += kSideNames.at(SideIndex(sides[i]));
    }
    return words;
}

// Sides that meet nothing are told together.
std::string Beyond(const Misfit& misfit) {
    if (misfit.other != nullptr) {
        return PieceOn(*misfit.other) + ' ' + WordOf(misfit.otherEdge);
    }
    const bool row = misfit.empty->element == ElementClass::Row;
    return (row ? "the row on line " : "the cell on line ") +
           std::to_string(misfit.empty->place.line) + (row ? " has ended" : " is empty");
}

std::string InWords(const std::vector<Misfit>& misfits) {
    std::map<Edge, std::vector<TileDirT>> toNothing;
    std::vector<std::string> phrases;
    for (const Misfit& misfit : misfits) {
        if (misfit.other == nullptr && misfit.empty == nullptr) {
            toNothing[misfit.edge].push_back(misfit.side);
        } else {
            phrases.push_back(std::string(WordOf(misfit.edge)) + " to the " +
                              kSideNames.at(SideIndex(misfit.side)) + ", where " + Beyond(misfit));
        }
    }
    for (const auto& [edge, sides] : toNothing) {
        phrases.push_back(std::string(WordOf(edge)) + " to the " + SideWords(sides) +
                          ", where nothing stands");
    }
    std::string words;
    for (const std::string& phrase : phrases) {
        words += (words.empty() ? "" : ", and ") + phrase;
    }
    return words;
}

const char* MeaningOf(const std::vector<Misfit>& misfits) {
    if (std::ranges::any_of(misfits, [](const Misfit& m) { return m.other == nullptr; })) {
        return kOutOfLevel;
    }
    const bool way = std::ranges::any_of(misfits, [](const Misfit& m) {
        return (Leads(m.edge) && m.otherEdge == Edge::Closed) ||
               (Leads(m.otherEdge) && m.edge == Edge::Closed);
    });
    return way ? kAtWall : kBackOfWall;
}

// Whether a piece at that place goes with all around it.
bool Suits(const Drawing& drawing, const Spot& at, const CellShape& shape, bool mayLeadOut) {
    return std::ranges::all_of(Sides(), [&](const Side& side) {
        const Edge edge = shape.On(side.dir);
        const Meeting met = MeetingAt(drawing, at, side.dir, edge);
        return met.cell != nullptr ? met.fits
                                   : edge == Edge::Closed || (mayLeadOut && edge == Edge::Doorway);
    });
}

// A piece that suits the place, of the kind that stands there if one does.
TileKind PieceFor(const DrawnLayout& drawn, const Spot& at, TileKind now) {
    TileKind suited;
    for (std::size_t i = 0; i < TileKind::kCount; ++i) {
        const TileKind kind = TileKind::At(i);
        const std::optional<CellShape> shape = ShapeOf(kind);
        const bool better =
            !suited.IsKnown() || (kind.Type() == now.Type() && suited.Type() != now.Type());
        if (better && shape && shape->climbs == 0 &&
            drawn.tiles.contains(std::string(kind.Name())) &&
            Suits(drawn.drawing, at, *shape, DoorwayOf(now) != DirNone)) {
            suited = kind;
        }
    }
    return suited;
}

void TellCell(const DrawnLayout& drawn,
              const DrawnCell& cell,
              const std::vector<Misfit>& misfits,
              Findings& findings) {
    const CellText text = ReadCell(*cell.col);
    // Another piece would not lead to another height.
    const TileKind piece =
        text.shape.climbs != 0 ? TileKind() : PieceFor(drawn, cell.at, TileKind::Of(text.piece));
    findings.Add(Weight::Warning,
                 cell.col->place,
                 text.piece + ' ' + InWords(misfits),
                 MeaningOf(misfits),
                 piece.IsKnown() ? WithPiece(text, piece, drawn.tiles) : "");
}

void TellEmpty(const DrawnLayout& drawn,
               const ConfigElement& empty,
               const std::vector<OpenSide>& facing,
               Findings& findings) {
    std::string around;
    for (const OpenSide& open : facing) {
        around += (around.empty() ? "" : " and ") + PieceOn(*open.cell);
    }
    const bool row = empty.element == ElementClass::Row;
    const TileKind piece = PieceFor(drawn, facing.front().beyond, {});
    findings.Add(Weight::Warning,
                 empty.place,
                 (row ? "the row ends before a place that " : "the cell is empty, and ") + around +
                     " open to it",
                 kEmptyPlace,
                 std::string(piece.Name()));
}

void TellLandings(const DrawnLayout& drawn, const Landings& landings, Findings& findings) {
    const auto& [here, there] = landings;
    const TileDirT farSide = Opposite(there.side);
    const bool up = there.beyond.z > here.beyond.z;
    findings.Add(Weight::Warning,
                 drawn.drawing.EmptyAt(here.beyond)->place,
                 "the cell is empty, and " + PieceOn(*here.cell) + " and " + PieceOn(*there.cell) +
                     ", at another height, open to it",
                 "Nobody gets from one to the other. Draw the stairs that are missing.",
                 (up ? "StairsUp" : "StairsDn") + std::string(1, "NSEW"[SideIndex(farSide)]));
}

// The places that several cells open to without meeting anything there.
Faced FacedPlaces(const DrawnLayout& drawn) {
    Faced faced;
    for (const auto* const sides : {&drawn.survey.gaps, &drawn.survey.ends}) {
        for (const OpenSide& open : *sides) {
            if (open.met.cell == nullptr && drawn.drawing.EmptyAt(open.beyond) != nullptr) {
                faced[open.beyond].push_back(open);
            }
        }
    }
    std::erase_if(faced, [](const auto& place) { return place.second.size() < 2; });
    return faced;
}

// Of two cells that do not go together, the one that goes with less around it is told.
Misfits MisfitsOf(const DrawnLayout& drawn, const Faced& faced) {
    std::map<const DrawnCell*, std::size_t> count;
    std::vector<const OpenSide*> gaps;
    for (const OpenSide& gap : drawn.survey.gaps) {
        if (gap.met.cell != nullptr || !faced.contains(gap.beyond)) {
            gaps.push_back(&gap);
            ++count[gap.cell];
            ++count[gap.met.cell];
        }
    }
    Misfits misfits;
    for (const OpenSide* gap : gaps) {
        const Edge edge = gap->cell->shape.On(gap->side);
        const Meeting& met = gap->met;
        if (met.cell != nullptr && count[met.cell] > count[gap->cell]) {
            misfits[met.cell].push_back({Opposite(gap->side), met.edge, gap->cell, edge, nullptr});
        } else {
            const ConfigElement* const empty =
                met.cell == nullptr ? drawn.drawing.EmptyAt(gap->beyond) : nullptr;
            misfits[gap->cell].push_back({gap->side, edge, met.cell, met.edge, empty});
        }
    }
    return misfits;
}

} // namespace

void CheckSides(const DrawnLayout& drawn, Findings& findings) {
    std::size_t told = 0;
    const Faced faced = FacedPlaces(drawn);
    const Misfits misfits = MisfitsOf(drawn, faced);
    for (const Landings& landings : drawn.survey.landings) {
        if (++told <= kMostTold) {
            TellLandings(drawn, landings, findings);
        }
    }
    for (const auto& [place, facing] : faced) {
        if (++told <= kMostTold) {
            TellEmpty(drawn, *drawn.drawing.EmptyAt(place), facing, findings);
        }
    }
    for (const auto& [cell, list] : misfits) {
        if (++told <= kMostTold) {
            TellCell(drawn, *cell, list, findings);
        }
    }
    if (told > kMostTold) {
        findings.Add(Weight::Warning,
                     drawn.layout.place,
                     std::to_string(told - kMostTold) + " more cells of " +
                         Titled(drawn.layout, Attrib_LayoutName) + " do not fit those beside them",
                     "They often have the same cause. Correct the others first.");
    }
}

} // namespace Tarnex::Report
