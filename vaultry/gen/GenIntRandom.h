// SPDX-License-Identifier: MIT
// Random interiors.
#pragma once

#include <vaultry/gen/GenIntBase.h>
#include <vaultry/gen/HallPlan.h>
#include <vaultry/gen/LayoutOwner.h>
#include <vaultry/layout/RoomInfo.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex {

/// Invents the floor plan: rooms on a grid, spaced and joined by halls, level after level linked by
/// teleporting doors, each furnished and written as a cell. Between levels it keeps the tile set
/// and the themes last chosen.
class GenIntRandom : public GenIntBase {
public:
    /// `info` must outlive the generator and have a tile set.
    using GenIntBase::GenIntBase;

protected:
    /// Makes the levels that the context's parameters ask for and reports on each.
    void Make() override;

    /// Levels in the order of their numbers.
    using Levels = std::vector<DiPtr<Layout>>;

    // Floor plan.

    /// Chooses the columns (x) and rows (y) of the room grid.
    void InitRoomGridSize(DiPos& size) const;
    /// One complete level for a room grid of that size; null when its rooms could not be joined.
    DiPtr<Layout> InitMainLayout(const DiPos& grid, LevelReport& report);
    /// Fills slots of the room grid, how many and which by spacing and chance.
    void CreateRooms(RoomInfo& rooms);
    /// A bare room of 3 to 7 cells a side.
    DiPtr<Layout> CreateRoom();
    /// A room from a layout template of the tile set's type; null when there is none.
    DiPtr<Layout> CreateFromUserLayout();
    /// Gives an empty layout corners, walls and a floor.
    void LayoutRoom(Layout& room) const;
    /// Adds the gaps that the spacing asks for to the rows and columns of the room grid; returns
    /// their bounds.
    SpacingRange SpaceRooms(RoomInfo& rooms) const;
    /// Puts each room into the level, anywhere in its slot.
    void PlaceRooms(Layout& main, RoomInfo& rooms) const;
    /// Joins the rooms with halls; false when two halls or more could not be made.
    bool ConnectRooms(Layout& main, RoomInfo& rooms, LevelReport& report);

    // Choices by chance.

    /// Chooses the tile set of the next level, if that is left to chance. The `first` level always
    /// gets one; later ones mostly keep theirs.
    void InitRandomTileSet(bool first);
    /// Likewise the themes, each if it is left to chance. No theme of the levels asked for is
    /// logged, and one of any level is taken.
    void InitRandomThemes(bool first);
    /// The themes with a level from lo to hi, in list order; negative levels never match.
    static std::vector<DiPtr<Theme>>
    FilterThemes(const std::vector<DiPtr<Theme>>& list, std::uint32_t lo, std::uint32_t hi);

    // Doors.

    /// Walls up the doorways of a template room that would open onto nothing.
    void RemoveExteriorDoors(Layout& layout) const;
    /// Links every two consecutive levels by a pair of doors.
    void AddTeleportingDoors(const Levels& levels);
    /// Turns the element into a doorway with a door; null when there is no element.
    DiPtr<GridElmt> AddTeleDoor(Layout& layout, const DiPos& pos) const;
    /// The place of an element with a tile of that type, by chance; (0, 0, 0) for none.
    DiPos FindElmt(const Layout& layout, TileType type) const;

private:
    struct ThemeChoice;
    void MarkLinked(const Layout& level);
    void Report(const char* text) const;
    void StepProgress() const;
    void MakeLayouts(LayoutOwner& levels);
    DiPtr<Layout> TryMainLayout(const DiPos& size, LevelReport& report);
    void NameLevel(Layout& level, const std::string& baseName, std::uint32_t number) const;
    void FinishLevel(Layout& level,
                     const LevelReport& report,
                     const std::vector<PieceChange>& changed,
                     bool first);
    void ChooseTheme(DiPtr<Theme>& theme, const ThemeChoice& choice, bool first) const;
    void CloseDoorway(GridElmt& elmt, TileDirT facing) const;

    void PlanChanges(const Layout& main, const RoomInfo& rooms, LevelReport& report);

    LayoutOwner drafts; ///< of the floor plan under way: rooms from templates, the level last
    std::vector<PieceChange> draftChanges;         ///< likewise, of its halls and doorways
    std::vector<std::vector<PieceChange>> changes; ///< of the levels that were made
};

} // namespace Tarnex
