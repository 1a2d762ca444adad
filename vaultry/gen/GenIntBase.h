// SPDX-License-Identifier: MIT
// The frame of the interior generators.
#pragma once

#include <vaultry/gen/GenInfo.h>
#include <vaultry/layout/Layout.h>
#include <vaultry/layout/Sides.h>

#include <cstdint>
#include <vector>

namespace Tarnex {

/// What one generation run shares and the fixed stages of its pipeline: from a template to a
/// layout, platforms, contents from the themes, the layout's references in a cell, treasure.
///
/// Its messages are logged under "Generator".
class GenIntBase {
public:
    /// `info` must outlive the generator; its default tile set is used until another is chosen.
    explicit GenIntBase(GenInfo& info);
    /// A generator of the same run.
    GenIntBase(const GenIntBase&) = default;
    GenIntBase& operator=(const GenIntBase&) = delete;
    virtual ~GenIntBase();

    /// Makes the interior. Cancelled, it ends early and says so in the report.
    virtual void Gen();

protected:
    /// The generator's pipeline; nothing in the base.
    virtual void Make() {}

    /// Elements of a layout that outlives the list.
    using ElmtList = std::vector<GridElmt*>;

    /// The elements of a layout and its children by the type of their first tile. Doorways and hall
    /// ends are in none of the lists. The counts are those of the sort, whatever is removed later.
    struct SortedElmts {
        std::uint32_t numCenters = 0; ///< as many were sorted into `centers`
        std::uint32_t numCorners = 0; ///< as many were sorted into `corners`
        std::uint32_t numHalls = 0;   ///< as many were sorted into `halls`
        std::uint32_t numWalls = 0;   ///< as many were sorted into `walls`
        ElmtList centers;             ///< floor centres
        ElmtList corners;             ///< room corners
        ElmtList halls;               ///< hall pieces, but for dead ends
        ElmtList walls;               ///< straight walls
    };

    // Frame.

    /// Fills `layout` from the template and its child templates. A tile that the tile set lacks is
    /// logged and skipped.
    void TemplateToLayout(Layout& layout, const LayoutTemplate& from);
    /// An empty layout, counted in the run's memory.
    DiPtr<Layout> MakeLayout(const DiPos& size) const;
    /// Adds the elements of the layout and its children to the lists.
    void SortLayout(SortedElmts& sorted, const Layout& layout) const;
    /// Makes the cell named in the run's context, beginning with its north marker.
    void InitCell();
    /// Turns the whole layout into references of the run's cell.
    void FillCell(const Layout& layout);
    /// Turns every element of the layout and its children into references; `offset` is the
    /// layout's absolute position. [cells]
    void LayoutToCell(Cell& target, const Layout& layout, const Di3Point& offset);
    /// Appends references for the element's tiles and their companions.
    void
    CvtTiles(Cell& target, const GridElmt& elmt, const DiPos& pos, const Di3Point& offset) const;
    /// Appends the reference of one tile; a door of a linked level becomes a teleporting one.
    void DoCvtTile(Cell& target,
                   const GridElmt& elmt,
                   const Tile& tile,
                   const DiPos& pos,
                   const Di3Point& offset) const;
    /// Sets a door into the wall on that side, in place of the element's tiles.
    static void SetDoor(GridElmt& elmt, const Side& side, const TileSet& set);
    /// Gives the level, the first of the run, the door that leads out, if there is to be one. After
    /// the contents, which are placed by chance and stand as they would without it.
    void AddWayOut(const Layout& level, const LevelReport* report) const;
    /// Appends references for the pieces of the element's platform.
    void CvtPlatforms(Cell& target,
                      const GridElmt& elmt,
                      const DiPos& pos,
                      const Di3Point& offset) const;

    /// Shows the finished cell to the observer, if there is one.
    void ShowLevel(const Layout& layout, const LevelReport* report) const;

    // Platforms.

    /// Raises a platform, chosen by chance from the configuration, along every wall.
    void AddPlatforms(Layout& layout);
    /// Builds the platform along the wall or in the corner that the element is. A platform without
    /// a floor piece adds nothing; too many floor pieces are left out and logged, another kind of
    /// element is logged.
    void AddPlatform(GridElmt& elmt, const Platform& platform) const;
    /// The same with `left` floor pieces at most, and as many less for the next as this one asks
    /// for: a negative number says that some were left out.
    void RaisePlatform(GridElmt& elmt, const Platform& platform, std::int64_t& left) const;

    // Contents.

    /// Furnishes the layout from the furniture and creature themes.
    void AddContents(Layout& layout);
    /// Begins chance anew for all contents, if that is asked for.
    void SeedContents() const;
    /// Places what the item asks for where content of its kind goes: rugs on floor centres, all
    /// else along walls and, but in caves, into corners. Full elements leave the lists.
    /// @{

    void PlaceContainers(SortedElmts& sorted, const ThemeItem& item);
    void PlaceFurniture(SortedElmts& sorted, const ThemeItem& item);
    void PlaceTapestries(SortedElmts& sorted, const ThemeItem& item);
    void PlaceRugs(SortedElmts& sorted, const ThemeItem& item);
    /// @}

    /// Places creatures on centres, halls and along walls; birds and fish stay out.
    void PlaceCreatures(SortedElmts& sorted, const ThemeItem& item);
    /// Places content of `item` along walls and, but in caves, into corners.
    void
    WallAndCornerPlace(SortedElmts& sorted, const ThemeItem& item, const ContentList& candidates);
    /// Places content of `item` on elements drawn from `elements`, each used at most once.
    void PlaceItems(ElmtList& elements,
                    const ThemeItem& item,
                    const ContentList& candidates,
                    std::uint32_t count);
    /// Adds an item made from the content, fitted to the element; nothing without tiles.
    void PlaceItem(const ContentTemplate& content, GridElmt& elmt) const;
    /// The content that the item names, or one of the candidates by chance; null when there is
    /// none. An unknown name is logged.
    DiPtr<ContentTemplate> SelectContent(const ThemeItem& item,
                                         const ContentList& candidates) const;
    /// One of the list by chance, valuable content rarely; null for an empty list.
    DiPtr<ContentTemplate> SelectItem(const ContentList& candidates) const;
    /// Likewise among all content of the item's type.
    DiPtr<ContentTemplate> ThemeItemToContent(const ThemeItem& item) const;
    /// How many of the content make one stack.
    std::uint32_t DetermineQty(const ContentTemplate& content) const;
    /// Takes the elements out of the list that can hold no more.
    static void RemoveFullElmts(ElmtList& list);
    /// Takes the content of that subtype out of the list.
    static void RemoveBySubtype(ContentList& list, const char* subtype);
    /// Turns the element's contents into references, each container into a record of its own.
    void CvtContents(Cell& target, const GridElmt& elmt, const DiPos& pos, const Di3Point& offset);

    // Treasure.

    /// Fills the containers from the treasure theme; nothing without one.
    void AddCtrTreasure(std::vector<DiPtr<Container>>& filled);
    /// Puts what one item of a theme asks for into containers that can carry it.
    void PlaceCtrTreasure(std::vector<DiPtr<Container>>& filled, const ThemeItem& item);

    GenInfo& info;                            ///< the run's context
    ConfigMgr* config;                        ///< its configuration; never null
    DiPtr<TileSet> tileSet;                   ///< in use; a random generator may replace it
    DiPtr<Cell> cell;                         ///< being filled; null until InitCell
    std::vector<DiPtr<Container>> containers; ///< made for the cell's contents
    const Theme* placed = nullptr;            ///< whose items are being placed; null: none's

private:
    Ref MakeRef(const std::string& id,
                const Di3Point& local,
                std::int32_t zRotate,
                const DiPos& pos,
                const Di3Point& offset) const;
    void MakeTeleport(Ref& door, const GridElmt& elmt) const;
    void MakeContainer(ContentItem& item);
};

} // namespace Tarnex
