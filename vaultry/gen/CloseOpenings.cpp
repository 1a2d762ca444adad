// SPDX-License-Identifier: MIT
#include <vaultry/gen/CloseOpenings.h>

#include <bit>
#include <optional>
#include <utility>
#include <vector>

namespace Tarnex {

namespace {

// Ways round are looked for as far as that, so that a hostile level costs no more than a large one.
// [cells]
constexpr std::size_t kFarthestLook = 10'000;

SideBits Except(SideBits sides, TileDirT side) {
    return static_cast<SideBits>(sides & ~SideBit(side));
}

// What becomes of a neighbour that a junction turns away from, the best first.
enum class Loss { DeadEnd, SecondJunction, Hall, Doorway, Unbearable };

class Closing {
public:
    Closing(HallPlan& plan_, RunMeter& meter_) : plan(plan_), meter(meter_) {}

    void Close() {
        for (PlanCell& cell : plan.Cells()) {
            meter.Step();
            if (cell.loose != 0) {
                Close(cell);
            }
        }
    }

private:
    void Close(PlanCell& cell) {
        const auto left = static_cast<SideBits>(cell.open & ~cell.loose);
        if (plan.CanLeave(cell, left)) {
            plan.Leave(cell, left);
            return;
        }
        // What is left of a hall then has three sides, and one too many.
        if (plan.PartOf(cell) == PlanPart::Kept || std::popcount(cell.loose) != 1 ||
            plan.AddEnd(cell, static_cast<TileDirT>(std::countr_zero(cell.loose)))) {
            return;
        }
        TurnAway(cell, left);
    }

    void TurnAway(PlanCell& junction, SideBits joined) {
        std::pair best(Loss::Unbearable, DirN);
        for (const TileDirT side : kSides) {
            if ((joined & SideBit(side)) != 0 && plan.CanLeave(junction, Except(joined, side))) {
                const Loss loss = LossBehind(junction, side);
                // The first of equals.
                best = loss < best.first ? std::pair(loss, side) : best;
            }
        }
        const auto& [loss, side] = best;
        if (loss == Loss::Unbearable) {
            return;
        }
        PlanCell& other = plan.Next(junction, side);
        plan.Leave(junction, Except(joined, side));
        // A second junction of that kind has but two ways left, an end none.
        plan.Leave(other, static_cast<SideBits>(other.open & ~other.loose));
    }

    Loss LossBehind(PlanCell& junction, TileDirT side) {
        const PlanCell& other = plan.Next(junction, side);
        const auto left =
            static_cast<SideBits>(Except(other.open, OppositeOf(side)) & ~other.loose);
        if (!plan.CanLeave(other, left)) {
            return Loss::Unbearable;
        }
        if (left == 0) {
            return Loss::DeadEnd;
        }
        if (!IsJoinedAnotherWay(junction, side)) {
            return Loss::Unbearable;
        }
        return plan.PartOf(other) == PlanPart::Doorway ? Loss::Doorway
               : other.loose != 0                      ? Loss::SecondJunction
                                                       : Loss::Hall;
    }

    // Whether one comes from a cell to its neighbour on that side without going there straight.
    bool IsJoinedAnotherWay(PlanCell& from, TileDirT side) {
        const PlanCell* to = &plan.Next(from, side);
        std::vector<PlanCell*> reached = {&from};
        seen.resize(plan.Cells().size());
        seen[plan.NumberOf(from)] = true;
        bool found = false;
        for (std::size_t i = 0; i < reached.size() && !found && i < kFarthestLook; ++i) {
            meter.Step();
            for (const TileDirT way : kSides) {
                PlanCell& cell = *reached[i];
                if ((cell.ways & SideBit(way)) == 0 || (i == 0 && way == side)) {
                    continue;
                }
                PlanCell& next = plan.Next(cell, way);
                found = found || &next == to;
                if (!seen[plan.NumberOf(next)]) {
                    seen[plan.NumberOf(next)] = true;
                    reached.push_back(&next);
                }
            }
        }
        for (const PlanCell* cell : reached) {
            seen[plan.NumberOf(*cell)] = false;
        }
        return found;
    }

    HallPlan& plan;
    RunMeter& meter;
    std::vector<bool> seen; // while a way is looked for
};

} // namespace

void CloseOpenings(HallPlan& plan, RunMeter& meter) {
    Closing(plan, meter).Close();
}

} // namespace Tarnex
