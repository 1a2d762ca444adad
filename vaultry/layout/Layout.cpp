// SPDX-License-Identifier: MIT
#include <vaultry/layout/Layout.h>

#include <vaultry/foundation/Grid.h>
#include <vaultry/foundation/Numeric.h>

#include <algorithm>
#include <utility>

namespace Tarnex {

namespace {

std::size_t CellCount(std::int32_t extent) {
    return static_cast<std::size_t>(std::max(extent, 0));
}

// One component of a total size: grown by a child's reach on the far side, then on the near side.
void Cover(std::int32_t& total, std::int32_t childSize, float childOffset) {
    const double shift = childOffset;
    total = std::max(total, TruncToInt(childSize + shift));
    if (shift < 0.0) {
        total = TruncToInt(total - shift);
    }
}

} // namespace

const DiPtr<GridElmt> Layout::S_NoElmt;

Layout::Layout(const DiPos& size_) : size(size_), rows(CellCount(size.y), Row(CellCount(size.x))) {}

Layout::~Layout() = default;

DiPtr<Layout> Layout::Create(const DiPos& size) {
    return DiPtr<Layout>(new Layout(size));
}

void Layout::SetElmt(const DiPtr<GridElmt>& elmt, std::int32_t row, std::int32_t col) {
    const auto r = static_cast<std::uint32_t>(row);
    const auto c = static_cast<std::uint32_t>(col);
    CheckColumn(c, CellCount(size.x));
    if (r < rows.size()) {
        rows[r][c] = elmt;
    }
}

bool Layout::HasTiles(std::uint32_t row, std::uint32_t col) const {
    const DiPtr<GridElmt>& elmt = GetElmt(row, col);
    return elmt && !elmt->tiles.empty();
}

void Layout::AddChild(const DiPtr<Layout>& child) {
    if (child) {
        child->parent = this;
        children.push_back(child);
    }
}

DiPtr<Layout> Layout::GetParent() {
    return parent ? parent : DiPtr<Layout>(this);
}

DiPtr<Layout> Layout::GetRoot() {
    Layout* top = this;
    while (top->parent) {
        top = top->parent.get();
    }
    return top;
}

Di3Point Layout::GetMinChildOffset() const {
    if (children.empty()) {
        return {};
    }
    Di3Point least = children.front()->offset;
    for (const DiPtr<Layout>& child : children) {
        least.x = std::min(least.x, child->offset.x);
        least.y = std::min(least.y, child->offset.y);
        least.z = std::min(least.z, child->offset.z);
    }
    return least;
}

DiPos Layout::GetTotalSize() const {
    DiPos total = size;
    for (const DiPtr<Layout>& child : children) {
        const DiPos reach = child->GetTotalSize();
        Cover(total.x, reach.x, child->offset.x);
        Cover(total.y, reach.y, child->offset.y);
        Cover(total.z, reach.z, child->offset.z);
    }
    return total;
}

void Layout::AddContents(Layout& other) {
    const std::int32_t rowOff = TruncToInt(other.offset.y);
    const std::int32_t colOff = TruncToInt(other.offset.x);
    for (std::int32_t r = 0; r < other.size.y; ++r) {
        for (std::int32_t c = 0; c < other.size.x; ++c) {
            const auto& elmt = other.rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)];
            SetElmt(elmt,
                    TruncToInt(static_cast<double>(r) + rowOff),
                    TruncToInt(static_cast<double>(c) + colOff));
        }
    }
    for (const DiPtr<Layout>& child : other.children) {
        child->offset += Di3Point(static_cast<float>(colOff), static_cast<float>(rowOff), 0.0F);
        children.push_back(child);
    }
    other.children.clear();
}

void Layout::AddShadows(float zMin, float zMax) {
    for (const DiPtr<Layout>& child : children) {
        const Di3Point& at = child->offset;
        if (!(zMin <= at.z && at.z <= zMax)) {
            continue;
        }
        for (std::uint32_t r = 0; r < child->rows.size(); ++r) {
            for (std::uint32_t c = 0; c < child->rows[r].size(); ++c) {
                const auto row = static_cast<std::uint32_t>(TruncToInt(r + double{at.y}));
                const auto col = static_cast<std::uint32_t>(TruncToInt(c + double{at.x}));
                const DiPtr<GridElmt>& elmt = child->rows[r][c];
                const bool inside = row < rows.size() && col < rows[row].size();
                if (inside && elmt && !rows[row][col]) {
                    rows[row][col] = MakeDi<GridElmt>(*elmt);
                    rows[row][col]->isShadow = true;
                }
            }
        }
    }
}

void Layout::RemoveShadows() {
    for (Row& row : rows) {
        for (DiPtr<GridElmt>& elmt : row) {
            if (elmt && elmt->isShadow) {
                elmt = nullptr;
            }
        }
    }
}

Layout::Elmts
Layout::GetElmtsDeep(std::uint32_t row, std::uint32_t col, float zMin, float zMax) const {
    // Indices count as signed from here on: row -1 of a root can be row 0 of a child.
    auto r = static_cast<std::int32_t>(row);
    auto c = static_cast<std::int32_t>(col);
    const Layout* top = this;
    for (; top->parent; top = top->parent.get()) {
        r = TruncToInt(r + double{top->offset.y});
        c = TruncToInt(c + double{top->offset.x});
        zMin += top->offset.z;
        zMax += top->offset.z;
    }
    Elmts found;
    top->DoGetElmtsDeep(found, r, c, zMin, zMax);
    return found;
}

void Layout::DoGetElmtsDeep(
    Elmts& found, std::int32_t row, std::int32_t col, float zMin, float zMax) const {
    if (zMin <= 0.0F && 0.0F <= zMax) {
        const auto& elmt =
            GetElmt(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
        if (elmt) {
            found.push_back(elmt);
        }
    }
    for (const DiPtr<Layout>& child : children) {
        const Di3Point& at = child->offset;
        child->DoGetElmtsDeep(found,
                              TruncToInt(row - double{at.y}),
                              TruncToInt(col - double{at.x}),
                              zMin - at.z,
                              zMax - at.z);
    }
}

void Layout::ShallowCopy(const Layout& other) {
    if (!(size == other.size) || size.y == 0) {
        return;
    }
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            const DiPtr<GridElmt>& elmt = other.rows[r][c];
            rows[r][c] = elmt ? MakeDi<GridElmt>(*elmt) : nullptr;
        }
    }
}

void Layout::Dissolve() {
    rows.clear();
    const auto parts = std::exchange(children, {});
    for (const DiPtr<Layout>& child : parts) {
        child->parent = nullptr;
        child->Dissolve();
    }
}

} // namespace Tarnex
