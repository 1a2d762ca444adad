// SPDX-License-Identifier: MIT
#include <vaultry/gen/TidyHalls.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

namespace Tarnex {

namespace {

constexpr std::uint32_t kFar = std::numeric_limits<std::uint32_t>::max();

// Halls of so many pieces, times the ends that they have, stay as they are: only a hostile level
// has them, and every end looks at every piece.
constexpr std::size_t kMostLooks = 20'000'000;

// One piece of hall, as a knot of the web that halls make.
struct Piece {
    PlanCell* cell;
    std::array<std::uint32_t, 4> neighbours; // by sides; kFar for none
    SideBits ends; // the sides on which the halls end: at a doorway, in a room
    SideBits kept; // of the sides joined, those that stay

    std::uint32_t Next(TileDirT side) const { return neighbours[static_cast<std::size_t>(side)]; }
};

// How one came to a piece, in a search.
struct Step {
    std::uint32_t length = kFar; // from where the search began [pieces]
    std::uint32_t added = 0;     // of these, ways that are not kept yet
    std::uint32_t from = kFar;   // the piece before
    TileDirT side = DirN;        // of that one
};

// All pieces that halls join with each other.
class Web {
public:
    Web(HallPlan& plan_, std::vector<PlanCell*> cells, std::vector<std::uint32_t>& numbers)
        : plan(plan_) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            numbers[plan.NumberOf(*cells[i])] = static_cast<std::uint32_t>(i);
        }
        for (PlanCell* cell : cells) {
            Piece piece{cell, {kFar, kFar, kFar, kFar}, 0, 0};
            for (const TileDirT side : kSides) {
                if ((cell->ways & SideBit(side)) == 0) {
                    continue;
                }
                const PlanCell& next = plan.Next(*cell, side);
                if (plan.PartOf(next) == PlanPart::Hall) {
                    piece.neighbours[static_cast<std::size_t>(side)] = numbers[plan.NumberOf(next)];
                } else {
                    piece.ends |= SideBit(side);
                }
            }
            piece.kept = piece.ends;
            pieces.push_back(piece);
        }
    }

    std::size_t CountLooks() const {
        return pieces.size() * static_cast<std::size_t>(std::ranges::count_if(
                                   pieces, [](const Piece& piece) { return piece.ends != 0; }));
    }

    void KeepShortestWays(RunMeter& meter) {
        for (std::uint32_t i = 0; i < pieces.size(); ++i) {
            if (pieces[i].ends == 0) {
                continue;
            }
            meter.Step(static_cast<std::int64_t>(pieces.size()));
            const std::vector<Step> steps = Search(i);
            for (std::uint32_t to = i + 1; to < pieces.size(); ++to) {
                if (pieces[to].ends != 0) {
                    Keep(steps, to);
                }
            }
        }
    }

    void KeepRounds(std::uint32_t longest, RunMeter& meter) {
        const std::vector<Step> steps = SearchFromKept();
        for (const Link& link : Links(steps)) {
            meter.Step(static_cast<std::int64_t>(pieces.size()));
            const std::uint32_t first = RootOf(steps, link.from);
            const std::uint32_t last = RootOf(steps, pieces[link.from].Next(link.side));
            if (link.length + std::uint64_t{KeptWay(first, last)} > longest) {
                Keep(steps, link.from);
                Keep(steps, pieces[link.from].Next(link.side));
                KeepSide(link.from, link.side);
            }
        }
    }

    // A piece of three ways has a fourth: what is there has to stay open towards it.
    void FillJunctions() {
        std::vector<std::uint32_t> open(pieces.size());
        for (std::uint32_t i = 0; i < pieces.size(); ++i) {
            open[i] = i;
        }
        while (!open.empty()) {
            const std::uint32_t number = open.back();
            open.pop_back();
            const Piece& piece = pieces[number];
            if (std::popcount(piece.kept) != 3) {
                continue;
            }
            const auto missing = static_cast<TileDirT>(std::countr_one(piece.kept));
            if (piece.Next(missing) != kFar) {
                KeepSide(number, missing);
                open.push_back(piece.Next(missing));
            }
        }
    }

    void Leave() {
        for (const Piece& piece : pieces) {
            // An opening that was there before stays where a junction needs it.
            const SideBits loose = std::popcount(piece.kept) == 3 ? piece.cell->loose : SideBits{0};
            plan.Leave(*piece.cell, piece.kept | loose);
        }
    }

private:
    // A way between two kept pieces over others, across that side of a piece.
    struct Link {
        std::uint32_t length;
        std::uint32_t from;
        TileDirT side;
    };

    void KeepSide(std::uint32_t number, TileDirT side) {
        pieces[number].kept |= SideBit(side);
        pieces[pieces[number].Next(side)].kept |= SideBit(OppositeOf(side));
    }

    // Keeps the way by which a search came to a piece.
    void Keep(const std::vector<Step>& steps, std::uint32_t to) {
        for (; steps[to].from != kFar; to = steps[to].from) {
            KeepSide(steps[to].from, steps[to].side);
        }
    }

    static std::uint32_t RootOf(const std::vector<Step>& steps, std::uint32_t number) {
        while (steps[number].from != kFar) {
            number = steps[number].from;
        }
        return number;
    }

    // The shortest ways from a piece to all others, of equal ones that which adds least, then one
    // that goes straight on.
    std::vector<Step> Search(std::uint32_t start) const {
        std::vector<Step> steps(pieces.size());
        std::vector<std::uint32_t> reached = {start};
        steps[start].length = 0;
        for (std::size_t i = 0; i < reached.size(); ++i) {
            const std::uint32_t number = reached[i];
            const Piece& piece = pieces[number];
            for (const TileDirT side : kSides) {
                const std::uint32_t next = piece.Next(side);
                if (next == kFar) {
                    continue;
                }
                const bool isKept = (piece.kept & SideBit(side)) != 0;
                const Step way{steps[number].length + 1,
                               steps[number].added + (isKept ? 0U : 1U),
                               number,
                               side};
                if (steps[next].length == kFar) {
                    reached.push_back(next);
                    steps[next] = way;
                } else if (steps[next].length == way.length && IsBetter(steps, way, steps[next])) {
                    steps[next] = way;
                }
            }
        }
        return steps;
    }

    static bool IsBetter(const std::vector<Step>& steps, const Step& way, const Step& than) {
        if (way.added != than.added) {
            return way.added < than.added;
        }
        const auto goesOn = [&steps](const Step& step) {
            return steps[step.from].from == kFar || steps[step.from].side == step.side;
        };
        return goesOn(way) && !goesOn(than);
    }

    // From all kept pieces at once to those that are not.
    std::vector<Step> SearchFromKept() const {
        std::vector<Step> steps(pieces.size());
        std::vector<std::uint32_t> reached;
        for (std::uint32_t i = 0; i < pieces.size(); ++i) {
            if (pieces[i].kept != 0) {
                steps[i].length = 0;
                reached.push_back(i);
            }
        }
        for (std::size_t i = 0; i < reached.size(); ++i) {
            const std::uint32_t number = reached[i];
            for (const TileDirT side : kSides) {
                const std::uint32_t next = pieces[number].Next(side);
                if (next != kFar && steps[next].length == kFar) {
                    steps[next] = {steps[number].length + 1, 0, number, side};
                    reached.push_back(next);
                }
            }
        }
        return steps;
    }

    // The ways that are not kept and lead from one kept piece to another, the shortest first.
    std::vector<Link> Links(const std::vector<Step>& steps) const {
        std::vector<Link> links;
        for (std::uint32_t i = 0; i < pieces.size(); ++i) {
            for (const TileDirT side : {DirS, DirE}) {
                const std::uint32_t next = pieces[i].Next(side);
                // What no end is joined with leads nowhere.
                if (next == kFar || (pieces[i].kept & SideBit(side)) != 0 ||
                    steps[i].length == kFar || steps[next].from == i || steps[i].from == next) {
                    continue;
                }
                links.push_back({steps[i].length + 1 + steps[next].length, i, side});
            }
        }
        std::ranges::stable_sort(links, {}, &Link::length);
        return links;
    }

    // Between kept pieces, over what is kept by now. [pieces]
    std::uint32_t KeptWay(std::uint32_t from, std::uint32_t to) const {
        std::vector<std::uint32_t> length(pieces.size(), kFar);
        std::vector<std::uint32_t> reached = {from};
        length[from] = 0;
        for (std::size_t i = 0; i < reached.size() && length[to] == kFar; ++i) {
            const Piece& piece = pieces[reached[i]];
            for (const TileDirT side : kSides) {
                const std::uint32_t next = piece.Next(side);
                if (next != kFar && (piece.kept & SideBit(side)) != 0 && length[next] == kFar) {
                    length[next] = length[reached[i]] + 1;
                    reached.push_back(next);
                }
            }
        }
        return length[to];
    }

    HallPlan& plan;
    std::vector<Piece> pieces;
};

// All cells of halls that are joined with that one, in the order of the plan.
std::vector<PlanCell*> JoinedWith(HallPlan& plan, PlanCell& first, std::vector<bool>& seen) {
    std::vector<PlanCell*> cells = {&first};
    seen[plan.NumberOf(first)] = true;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        for (const TileDirT side : kSides) {
            if ((cells[i]->ways & SideBit(side)) == 0) {
                continue;
            }
            PlanCell& next = plan.Next(*cells[i], side);
            if (plan.PartOf(next) == PlanPart::Hall && !seen[plan.NumberOf(next)]) {
                seen[plan.NumberOf(next)] = true;
                cells.push_back(&next);
            }
        }
    }
    std::ranges::sort(cells);
    return cells;
}

} // namespace

void TidyHalls(HallPlan& plan, std::uint32_t steps, RunMeter& meter) {
    if (!plan.HasAllHalls()) {
        return;
    }
    std::vector<bool> seen(plan.Cells().size());
    std::vector<std::uint32_t> numbers(plan.Cells().size());
    for (PlanCell& cell : plan.Cells()) {
        meter.Step();
        if (plan.PartOf(cell) != PlanPart::Hall || seen[plan.NumberOf(cell)]) {
            continue;
        }
        Web web(plan, JoinedWith(plan, cell, seen), numbers);
        if (web.CountLooks() > kMostLooks) {
            continue;
        }
        web.KeepShortestWays(meter);
        web.KeepRounds(steps, meter);
        web.FillJunctions();
        web.Leave();
    }
}

} // namespace Tarnex
