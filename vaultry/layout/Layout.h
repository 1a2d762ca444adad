// SPDX-License-Identifier: MIT
// A grid of elements with nested layouts.
#pragma once

#include <vaultry/catalogue/TileSet.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/layout/GridElmt.h>

#include <string>
#include <vector>

namespace Tarnex {

/// A rectangular grid of optional elements. Row 0 is the northern edge, column 0 the western; every
/// operation with two indices takes the row first. Layouts nest: a level holds rooms, a room may
/// hold parts raised or lowered in z.
///
/// Parent links are counted like every handle, so a parent and its children keep each other alive
/// until Dissolve is called at the end of a run.
///
/// @code
/// for (std::uint32_t row = 0; row < level.GetHeight(); ++row) {
///     for (const DiPtr<Tarnex::GridElmt>& elmt : level.GetRow(row)) {
///         std::cout << (elmt && !elmt->tiles.empty() ? '#' : '.');
///     }
///     std::cout << '\n';
/// }
/// @endcode
class VAULTRY_API Layout : public DiRcObject {
public:
    /// The elements of one row, west to east; null where a cell is empty.
    using Row = std::vector<DiPtr<GridElmt>>;
    /// Elements of any place.
    using Elmts = std::vector<DiPtr<GridElmt>>;

    /// A new layout of size.y rows and size.x columns, all empty. A component of 0 or less gives a
    /// grid without cells. Takes a pointer for each cell at once; throws std::bad_alloc where that
    /// is not to be had.
    static DiPtr<Layout> Create(const DiPos& size);
    ~Layout() override;

    /// Width, height and vertical extent. [cells]
    const DiPos& GetSize() const { return size; }
    /// The number of columns.
    std::uint32_t GetWidth() const { return static_cast<std::uint32_t>(size.x); }
    /// The number of rows.
    std::uint32_t GetHeight() const { return static_cast<std::uint32_t>(size.y); }

    /// Position inside the parent. [cells: +x east, +y south, z up]
    const Di3Point& GetOffset() const { return offset; }
    /// Replaces the offset.
    void SetOffset(const Di3Point& newOffset) { offset = newOffset; }

    /// A level's name becomes the name of its cell.
    const std::string& GetName() const { return name; }
    /// Replaces the name; not null.
    void SetName(const char* newName) { name = newName; }

    /// The elements of one row; the index is not checked.
    /// @{
    Row& GetRow(std::uint32_t row) { return rows[row]; }
    const Row& GetRow(std::uint32_t row) const { return rows[row]; }
    /// @}

    /// The element, or null for an empty cell and outside the grid. The reference holds until the
    /// cell is next written.
    const DiPtr<GridElmt>& GetElmt(std::uint32_t row, std::uint32_t col) const {
        const bool inside = row < rows.size() && col < rows[row].size();
        return inside ? rows[row][col] : S_NoElmt;
    }
    /// Stores the element; null clears the cell. Throws std::out_of_range for a column outside the
    /// grid; a row outside is dropped.
    void SetElmt(const DiPtr<GridElmt>& elmt, std::int32_t row, std::int32_t col);
    /// True when an element is there and holds at least one tile.
    bool HasTiles(std::uint32_t row, std::uint32_t col) const;

    /// The layout's own tile set, null when it uses the generator's.
    const DiPtr<TileSet>& GetTileSet() const { return tileSet; }
    /// Replaces the layout's own tile set; null is allowed.
    void SetTileSet(const DiPtr<TileSet>& set) { tileSet = set; }

    /// Appends a child and becomes its parent; null is ignored.
    void AddChild(const DiPtr<Layout>& child);
    /// The layouts nested in this one, in order of addition.
    /// @{
    std::vector<DiPtr<Layout>>& GetChildren() { return children; }
    const std::vector<DiPtr<Layout>>& GetChildren() const { return children; }
    /// @}

    /// The parent; for a root the layout itself.
    DiPtr<Layout> GetParent();
    /// The topmost layout; for a root the layout itself.
    DiPtr<Layout> GetRoot();

    /// The smallest offset of the children, component by component; (0, 0, 0) without children.
    /// Negative where a part reaches out to the north or west. Grandchildren do not count.
    Di3Point GetMinChildOffset() const;
    /// The extent covered together with all descendants. Reach past the near edge adds up child by
    /// child on purpose: two children two columns west widen the total by four. [cells]
    DiPos GetTotalSize() const;

    /// Drops `other` into this layout at its offset: its cells, empty ones too, replace those here
    /// (the elements are shared from then on), and its children move over, keeping their parent.
    /// Its cells must fit: a column outside throws std::out_of_range, with what was copied until
    /// then in place; a row outside is dropped.
    void AddContents(Layout& other);

    /// Shows the cells of direct children with zMin <= z <= zMax in this grid, as marked copies in
    /// cells that are empty. Grandchildren are not shown. What is written into a marked copy is
    /// lost with it.
    void AddShadows(float zMin, float zMax);
    /// Clears every cell that AddShadows filled.
    void RemoveShadows();

    /// Every element, anywhere in the tree of this layout, at the absolute position of (row, col)
    /// whose layout's z lies within [zMin, zMax] of this one: a layout's own element before those
    /// of its children, depth first. Costs a look at every layout of the tree.
    Elmts GetElmtsDeep(std::uint32_t row, std::uint32_t col, float zMin, float zMax) const;

    /// Makes each cell a new copy of the other's cell, or empty. Nothing happens when the sizes
    /// differ or the height is 0. Name, offset, tile set and children stay.
    void ShallowCopy(const Layout& other);

    /// Lets go of the cells and children of this layout and of everything below it, so that no
    /// cycle keeps them alive. To be called on the root, which is of no use afterwards. Elements
    /// and layouts that others hold live on without it.
    void Dissolve();

protected:
    /// See Create, which is how layouts are made.
    explicit Layout(const DiPos& size);

    /// Appends what GetElmtsDeep finds from here down.
    void
    DoGetElmtsDeep(Elmts& found, std::int32_t row, std::int32_t col, float zMin, float zMax) const;

private:
    static const DiPtr<GridElmt> S_NoElmt;

    std::string name;
    DiPos size;
    Di3Point offset;
    std::vector<Row> rows;
    DiPtr<Layout> parent;
    DiPtr<TileSet> tileSet;
    std::vector<DiPtr<Layout>> children;
};

/// The cell of a layout's north-western corner in its parent.
inline DiPos OriginOf(const Layout& layout) {
    return {TruncToInt(layout.GetOffset().x), TruncToInt(layout.GetOffset().y), 0};
}

} // namespace Tarnex
