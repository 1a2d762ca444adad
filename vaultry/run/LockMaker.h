// SPDX-License-Identifier: MIT
// Locks, keys and traps for the levels of a run.
#pragma once

#include <vaultry/gen/LevelObserver.h>
#include <vaultry/output/Mod.h>
#include <vaultry/run/GameIds.h>
#include <vaultry/run/LevelSite.h>
#include <vaultry/run/OwnStream.h>
#include <vaultry/run/RunOptions.h>

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Tarnex {

/// Locks and arms the doors and containers of each level that it passes on, as the options ask, and
/// puts the keys of the doors into containers of the same level; see PlanKeys. To a level one comes
/// by the door from the level before or, where none leads to it, at its arrival; to a fixed
/// interior by the doorways onto nothing too.
///
/// For every door that leads somewhere and every container, in the order of the level's references,
/// whether it is locked is drawn from the stream of locks and, if so, its level; then, for each
/// door that can be, which container holds its key. Whether it is armed is drawn from the stream of
/// traps and, where there are several spells, which. Of two doors that lead to each other the one
/// on the earlier level is locked, and the other one says that it is not. What holds a key is not
/// locked.
class LockMaker : public LevelObserver {
public:
    /// `plugin` is the one under way, `idStamp` that of its containers; options and ids have to
    /// outlive the maker.
    LockMaker(Mod& plugin,
              const RunOptions& wishes,
              const GameIds& gameIds,
              std::uint32_t seed,
              std::int64_t idStamp,
              LevelObserver* nextObserver);

    void LevelFinished(const FinishedLevel& level) override;

private:
    // A cell of a level that may be still to come.
    using Place = std::pair<const Layout*, std::pair<std::int32_t, std::int32_t>>;

    // What was drawn for one thing.
    struct Drawn {
        std::optional<std::int32_t> lock; // its level
        std::string trap;                 // empty: none
    };

    // The one under way, which observers may only look at.
    Cell& OwnCell() const { return *mod.GetCells().back(); }
    bool LeadsOn(const LockableDoor& door, const Cell& cell) const;
    std::vector<DiPos> StartsOf(const FinishedLevel& level, const LevelPlan& plan) const;
    Drawn DrawFor();
    void LockLevel(const FinishedLevel& level);
    void LockDoors(const LevelSite& site, const std::vector<Drawn>& drawn, const KeyPlan& plan);
    void LockChests(const Lockables& things,
                    const std::vector<Drawn>& drawn,
                    const std::set<const LockableChest*>& holders);
    void LeaveFarSidesOpen(const FinishedLevel& level, const Lockables& things);
    std::string PutKeyInto(const LockableChest& chest);

    Mod& mod;
    const RunOptions& options;
    const GameIds& ids;
    std::string stamp;
    LevelObserver* next;
    OwnStream locks;
    OwnStream traps;
    std::set<const Layout*> finished;       // the levels before
    std::map<const Layout*, DiPos> entries; // where one comes to levels that are to come
    std::set<Place> farSides;               // of locked doors between levels
    std::unordered_map<std::string, DiPtr<Container>> chestRecords; // of the level, by identifier
    std::size_t containers = 0; // of this level and those before
    std::uint64_t keys = 0;
};

} // namespace Tarnex
