// SPDX-License-Identifier: MIT
// What meets what in a drawing, and what does not.
#pragma once

#include "tools/check/Drawing.h"

namespace Tarnex::Report {

/// What a side of a cell meets.
struct Meeting {
    const DrawnCell* cell = nullptr; ///< null where nothing stands
    Edge edge = Edge::Closed;        ///< its side
    bool fits = false;
};

/// A side of a cell that does not go with what it meets, or a doorway onto nothing.
struct OpenSide {
    const DrawnCell* cell = nullptr;
    TileDirT side = DirNone;
    Spot beyond; ///< the place that it opens to
    Meeting met;
};

/// Two doorways that face each other across an empty place, as far above each other as stairs
/// climb.
struct Landings {
    OpenSide here; ///< at the height of the empty place
    OpenSide there;
};

struct DrawingSurvey {
    std::vector<OpenSide> gaps;
    std::vector<Landings> landings;
    std::vector<OpenSide> ends;    ///< doorways onto nothing, by which one may come in
    std::vector<std::size_t> part; ///< of each cell: alike for those that are meant to be joined
};

/// The neighbour on that side of a place: one that fits the edge, else the first of all.
Meeting MeetingAt(const Drawing& drawing, const Spot& at, TileDirT side, Edge edge);

DrawingSurvey SurveyOf(const Drawing& drawing);

} // namespace Tarnex::Report
