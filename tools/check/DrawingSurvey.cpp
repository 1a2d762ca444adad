// SPDX-License-Identifier: MIT
#include "tools/check/DrawingSurvey.h"

#include <vaultry/foundation/Groups.h>

#include <cstdlib>
#include <map>

namespace Tarnex::Report {

namespace {

class Surveyor {
public:
    explicit Surveyor(const Drawing& drawing_)
        : drawing(drawing_), parts(drawing_.Cells().size()) {}

    DrawingSurvey Result() {
        for (const DrawnCell& cell : drawing.Cells()) {
            for (const Side& side : Sides()) {
                Look(cell, side.dir);
            }
        }
        JoinOverlapping();
        FindLandings();
        for (std::size_t cell = 0; cell < drawing.Cells().size(); ++cell) {
            survey.part.push_back(parts.Of(cell));
        }
        return std::move(survey);
    }

private:
    void Look(const DrawnCell& cell, TileDirT side) {
        const Edge edge = cell.shape.On(side);
        if (edge == Edge::Closed) {
            return;
        }
        OpenSide open{&cell, side, Beside(cell.at, side), {}};
        for (const std::int64_t height : drawing.HeightsOf(cell, side)) {
            const Spot at{cell.at.x, cell.at.y, height};
            const Meeting met = MeetingAt(drawing, at, side, edge);
            if (met.fits || open.met.cell == nullptr) {
                open.met = met;
                open.beyond.z = height;
            }
        }
        File(open, edge);
    }

    void File(const OpenSide& open, Edge edge) {
        const Meeting& met = open.met;
        // Where a way ends at a wall of its own layout the wall is wrong, else the layout's place.
        const bool meant = met.cell != nullptr && (Leads(edge) || Leads(met.edge)) &&
                           (met.edge != Edge::Closed || met.cell->layout == open.cell->layout);
        if (met.fits || meant) {
            parts.Join(IndexOf(*open.cell), IndexOf(*met.cell));
        }
        if (met.fits || edge == Edge::Any) {
            return;
        }
        if (met.cell == nullptr) {
            JoinBlank(open);
            (edge == Edge::Doorway ? survey.ends : survey.gaps).push_back(open);
        } else if (met.edge == Edge::Closed || open.cell < met.cell) {
            survey.gaps.push_back(open); // of two that are open to each other one tells it
        }
    }

    // What faces one empty place from several sides is meant to be joined there.
    void JoinBlank(const OpenSide& open) {
        if (drawing.EmptyAt(open.beyond) == nullptr) {
            return;
        }
        const auto [entry, isFirst] = faced.emplace(open.beyond, open.cell);
        if (!isFirst) {
            parts.Join(IndexOf(*entry->second), IndexOf(*open.cell));
        }
    }

    void FindLandings() {
        std::map<std::pair<std::int64_t, std::int64_t>, std::vector<OpenSide>> across;
        for (const OpenSide& end : survey.ends) {
            std::vector<OpenSide>& others = across[{end.beyond.x, end.beyond.y}];
            for (const OpenSide& other : others) {
                AddLandings(other, end);
                AddLandings(end, other);
            }
            others.push_back(end);
        }
    }

    void AddLandings(const OpenSide& here, const OpenSide& there) {
        const std::int64_t rise = there.beyond.z - here.beyond.z;
        if (here.side == Opposite(there.side) && rise != 0 && drawing.Climbs(std::abs(rise)) &&
            drawing.EmptyAt(here.beyond) != nullptr) {
            survey.landings.push_back({here, there});
            parts.Join(IndexOf(*here.cell), IndexOf(*there.cell));
        }
    }

    void JoinOverlapping() {
        const std::vector<DrawnCell>& cells = drawing.Cells();
        for (std::size_t i = 1; i < cells.size(); ++i) {
            if (Overlap(cells[i - 1].at, cells[i].at)) {
                parts.Join(i - 1, i);
            }
        }
    }

    std::size_t IndexOf(const DrawnCell& cell) const {
        return static_cast<std::size_t>(&cell - drawing.Cells().data());
    }

    const Drawing& drawing;
    Groups parts;
    std::map<Spot, const DrawnCell*> faced;
    DrawingSurvey survey;
};

} // namespace

Meeting MeetingAt(const Drawing& drawing, const Spot& at, TileDirT side, Edge edge) {
    Meeting met;
    for (const DrawnCell& other : drawing.Column(Beside(at, side))) {
        const std::optional<Edge> seen = drawing.Seen(other, Opposite(side), at.z);
        if (seen && !met.fits && (met.cell == nullptr || Fit(edge, *seen))) {
            met = {&other, *seen, Fit(edge, *seen)};
        }
    }
    return met;
}

DrawingSurvey SurveyOf(const Drawing& drawing) {
    return Surveyor(drawing).Result();
}

} // namespace Tarnex::Report
