// SPDX-License-Identifier: MIT
// One cell of a layout.
#pragma once

#include <vaultry/catalogue/ContentItem.h>
#include <vaultry/catalogue/PlatformTile.h>
#include <vaultry/catalogue/Tile.h>
#include <vaultry/foundation/DiPos.h>
#include <vaultry/foundation/DiPtr.h>
#include <vaultry/foundation/DiSmallList.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace Tarnex {

class Layout;

/// The tiles, platform pieces and contents of one cell of a layout, with its teleport data. A copy
/// shares the pieces and owns its lists.
///
/// A front end meets elements when a LevelObserver is shown a level: they tell what stands where
/// before it becomes references in world units. They are the level's; a handle keeps an element,
/// not the layouts around it.
class VAULTRY_API GridElmt final : public DiRcObject {
public:
    /// A doorway with its jamb and door fits in place.
    using Tiles = DiSmallList<Tile, 3>;

    // What carving and the judging of a level ask of every cell comes first: the cells of a level
    // do not fit into the processor's nearest cache, and most have to be looked at for this alone.
    bool isTeleport = false; ///< the cell's door is a teleporting door
    /// No further content may be placed here: something other than a rug stands in the cell.
    bool isFull = false;
    bool isShadow = false;    ///< made by Layout::AddShadows
    bool leadsOut = false;    ///< a teleporting door that leads out of the dungeon
    Tiles tiles;              ///< in placement order; the first decides kind and facing
    DiPtr<Layout> teleLayout; ///< the level that a teleporting door leads to, or null
    std::vector<DiPtr<ContentItem>> contents;   ///< in placement order
    std::vector<DiPtr<PlatformTile>> platforms; ///< the pieces of the platform in the cell
    /// Where in teleLayout a teleporting door leads: the cell of the other door, x the column and y
    /// the row [cells].
    DiPos teleDest;
    /// How far the platform in the cell, and what stands on it, is raised: 16 in cells below 512
    /// units, 32 below 1024, 64 in larger ones [world units].
    std::int32_t platformHeight = 0;

    /// Elements come from memory of their own kind; none derives from this class.
    static void* operator new(std::size_t size);
    /// Gives the memory back for the next element of the thread, whichever thread made this one.
    static void operator delete(void* memory) noexcept;
    /// Lets all threads have what the calling one has spare. To be called at the end of whatever
    /// makes and drops elements: what a thread still keeps when it ends is used no more. GenMgr
    /// does it after each run; only who makes elements by other ways needs it.
    static void ShareMemory() noexcept;

    /// An element without tiles.
    GridElmt();
    /// Shares the pieces of the other element, with lists of its own.
    GridElmt(const GridElmt& other);
    /// Lets go of what the element holds and does as a copy does.
    GridElmt& operator=(const GridElmt& other);
    ~GridElmt() override;

    /// Appends a tile; null is ignored.
    void AddTile(const DiPtr<Tile>& tile);
    /// Appends content; null is ignored.
    void AddContent(const DiPtr<ContentItem>& item);
    /// Drops all tiles and appends this one; null leaves the element without tiles.
    void ReplaceTiles(DiPtr<Tile> tile);

    /// True when some tile has that kind name, without regard to case.
    bool HasTile(std::string_view kindName) const;

    /// The tile that decides the element's kind and facing, or null.
    const Tile* FirstTile() const { return tiles.empty() ? nullptr : tiles.front().get(); }
};

} // namespace Tarnex
