// SPDX-License-Identifier: MIT
// Looking at finished levels, for maps and statistics.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>
#include <vaultry/foundation/Export.h>
#include <vaultry/gen/GenReport.h>
#include <vaultry/layout/Layout.h>
#include <vaultry/output/Cell.h>

namespace Tarnex {

/// A level as it stands when its cell is complete. Everything referred to lives until the call
/// ends: layouts are gone when the run is over.
struct FinishedLevel {
    const Layout& layout;      ///< with contents, doors and platforms
    const Cell& cell;          ///< with all its references
    const TileSet& tileSet;    ///< that the level is built from
    const ConfigMgr& config;   ///< that it is made from
    const LevelReport* report; ///< null for a fixed interior
};

/// Receives every finished level of a run, in order. A front end derives from it and hands it to
/// GenMgr::SetLevelObserver.
///
/// @code
/// class Counter : public Tarnex::LevelObserver {
/// public:
///     void StartOver() override { references = 0; }
///     void LevelFinished(const Tarnex::FinishedLevel& level) override {
///         references += level.cell.GetRefs().size();
///     }
///     std::size_t references = 0;
/// };
/// @endcode
class VAULTRY_API LevelObserver {
public:
    virtual ~LevelObserver() = default;
    /// Called before a run, which must not throw: levels that were shown until then are none of its
    /// own.
    virtual void StartOver() {}
    /// Called once for each level, while the run waits. An exception ends the run, which is refused
    /// then. On the thread that runs. Copy what is to outlive the call; nothing may be changed.
    virtual void LevelFinished(const FinishedLevel& level) = 0;
};

} // namespace Tarnex
