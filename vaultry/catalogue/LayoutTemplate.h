// SPDX-License-Identifier: MIT
// A hand-drawn plan of an interior or of a part of one.
#pragma once

#include <vaultry/catalogue/TemplateElmt.h>
#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/DiPos.h>
#include <vaultry/foundation/DiPtr.h>

#include <string>
#include <vector>

namespace Tarnex {

/// A rectangular grid of template cells with a name, a type, an offset and nested templates.
///
/// A top-level template makes a fixed interior or one room of a random level; the nested ones are
/// its raised and lowered parts. Generation copies what it takes from it and never changes it.
class VAULTRY_API LayoutTemplate : public DiRcObject {
public:
    /// The cells of one row, west to east.
    using Row = std::vector<DiPtr<TemplateElmt>>;

    /// The most columns or rows that a configuration may ask for. [cells]
    static constexpr std::int32_t kMaxSize = 1024;

    /// Makes size.y rows of size.x empty cells. A component of 0 gives a grid without cells; none
    /// may be negative. Nothing is checked against kMaxSize here: that is for whoever reads a size
    /// from outside.
    explicit LayoutTemplate(const DiPos& size);

    /// The name by which the template is chosen.
    const std::string& GetName() const { return name; }
    /// Replaces the name; not null.
    void SetName(const char* newName) { name = newName; }

    /// "Room" or "Cave" for a top-level template.
    const std::string& GetType() const { return type; }
    /// Replaces the type; not null. Lists that hold the template are not changed.
    void SetType(const char* newType) { type = newType; }

    /// Columns, rows and 0. [cells]
    const DiPos& GetSize() const { return size; }
    /// The number of columns.
    std::uint32_t GetWidth() const { return static_cast<std::uint32_t>(size.x); }
    /// The number of rows.
    std::uint32_t GetHeight() const { return static_cast<std::uint32_t>(size.y); }

    /// Position inside the enclosing template. [cells: +x east, +y south, +z up]
    const Di3Point& GetOffset() const { return offset; }
    /// Replaces the offset.
    void SetOffset(const Di3Point& newOffset) { offset = newOffset; }

    /// The cells of one row; throws std::out_of_range beyond the height.
    Row& GetRow(std::uint32_t row) { return rows.at(row); }

    /// The element of a cell, possibly null; throws std::out_of_range outside the grid.
    DiPtr<TemplateElmt> GetElmt(std::uint32_t row, std::uint32_t col) const;
    /// Stores the handle, releasing the one before; throws std::out_of_range outside the grid. A
    /// null handle empties the cell.
    void SetElmt(const DiPtr<TemplateElmt>& elmt, std::int32_t row, std::int32_t col);

    /// The templates nested in this one, in document order.
    /// @{
    std::vector<DiPtr<LayoutTemplate>>& GetChildren() { return children; }
    const std::vector<DiPtr<LayoutTemplate>>& GetChildren() const { return children; }
    /// @}
    /// Appends a child; null is ignored. That a template does not become its own descendant is for
    /// the caller to see to.
    void AddChild(const DiPtr<LayoutTemplate>& child);

private:
    std::string name;
    std::string type;
    DiPos size;
    Di3Point offset;
    std::vector<Row> rows;
    std::vector<DiPtr<LayoutTemplate>> children;
};

} // namespace Tarnex
