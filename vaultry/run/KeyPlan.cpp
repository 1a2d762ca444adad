// SPDX-License-Identifier: MIT
#include <vaultry/run/KeyPlan.h>

#include <deque>
#include <set>
#include <utility>

namespace Tarnex {

namespace {

class KeyPlanner {
public:
    KeyPlanner(const LockSite& lockSite,
               const std::vector<bool>& wanted,
               const std::function<std::size_t(std::size_t)>& chooseChest)
        : site(lockSite), choose(chooseChest), closed(wanted), doorsOf(site.places),
          chestsOf(site.places) {
        for (std::size_t door = 0; door < site.doors.size(); ++door) {
            doorsOf[site.doors[door].from].push_back(door);
            if (site.doors[door].to != kAway) {
                doorsOf[site.doors[door].to].push_back(door);
            }
        }
        for (std::size_t chest = 0; chest < site.chests.size(); ++chest) {
            chestsOf[site.chests[chest]].push_back(chest);
        }
        plan.keys.resize(site.doors.size());
        plan.reached.resize(site.places);
    }

    KeyPlan Make() {
        JoinStarts();
        for (const std::size_t start : site.starts) {
            if (!plan.reached[start]) {
                Explore(start);
            }
        }
        return std::move(plan);
    }

private:
    std::size_t Behind(std::size_t door, std::size_t place) const {
        const SiteDoor& ends = site.doors[door];
        return place == ends.from ? ends.to : ends.from;
    }

    // Whoever comes in at one start must not find himself shut off from what was meant to be open
    // to whoever comes in at another.
    void JoinStarts() {
        std::vector<bool> met(site.places);
        for (const std::size_t start : site.starts) {
            if (!met[start]) {
                OpenWays(start, met);
            }
        }
    }

    // Unlocks the doors on the ways from one start to all others, each by the fewest locks.
    void OpenWays(std::size_t start, std::vector<bool>& met) {
        std::vector<std::optional<std::size_t>> enteredBy(site.places);
        std::vector<bool> done(site.places);
        std::deque<std::pair<std::size_t, std::optional<std::size_t>>> open = {{start, {}}};
        while (!open.empty()) {
            const auto [place, by] = open.front();
            open.pop_front();
            if (done[place]) {
                continue;
            }
            done[place] = met[place] = true;
            enteredBy[place] = by;
            for (const std::size_t door : doorsOf[place]) {
                const std::size_t to = Behind(door, place);
                if (to != kAway && !done[to]) {
                    closed[door] ? open.emplace_back(to, door) : open.emplace_front(to, door);
                }
            }
        }
        for (const std::size_t other : site.starts) {
            for (std::size_t at = other; done[at] && enteredBy[at];) {
                closed[*enteredBy[at]] = false;
                at = Behind(*enteredBy[at], at);
            }
        }
    }

    void Explore(std::size_t start) {
        atHand.clear();
        Enter(start);
        while (!pending.empty()) {
            const std::size_t door = *pending.begin();
            pending.erase(pending.begin());
            if (!atHand.empty()) {
                plan.keys[door] = atHand[choose(atHand.size())];
            }
            closed[door] = false;
            for (const std::size_t place : {site.doors[door].from, site.doors[door].to}) {
                if (place != kAway) {
                    Enter(place);
                }
            }
        }
    }

    void Enter(std::size_t start) {
        std::vector<std::size_t> open = {start};
        while (!open.empty()) {
            const std::size_t place = open.back();
            open.pop_back();
            if (plan.reached[place]) {
                continue;
            }
            plan.reached[place] = true;
            atHand.insert(atHand.end(), chestsOf[place].begin(), chestsOf[place].end());
            for (const std::size_t door : doorsOf[place]) {
                const std::size_t to = Behind(door, place);
                if (closed[door]) {
                    pending.insert(door);
                } else if (to != kAway) {
                    open.push_back(to);
                }
            }
        }
    }

    const LockSite& site;
    const std::function<std::size_t(std::size_t)>& choose;
    std::vector<bool> closed; // the doors that are still to be opened
    std::vector<std::vector<std::size_t>> doorsOf;
    std::vector<std::vector<std::size_t>> chestsOf;
    std::vector<std::size_t> atHand; // the chests that one got at so far
    std::set<std::size_t> pending;   // the closed doors that one stands before
    KeyPlan plan;
};

} // namespace

KeyPlan PlanKeys(const LockSite& site,
                 const std::vector<bool>& wanted,
                 const std::function<std::size_t(std::size_t)>& choose) {
    return KeyPlanner(site, wanted, choose).Make();
}

} // namespace Tarnex
