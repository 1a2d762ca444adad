// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/LayoutTemplate.h>

#include <vaultry/foundation/Grid.h>

namespace Tarnex {

LayoutTemplate::LayoutTemplate(const DiPos& size_)
    : size(size_), rows(GetHeight(), Row(GetWidth())) {}

DiPtr<TemplateElmt> LayoutTemplate::GetElmt(std::uint32_t row, std::uint32_t col) const {
    const Row& cells = rows.at(row);
    CheckColumn(col, cells.size());
    return cells[col];
}

void LayoutTemplate::SetElmt(const DiPtr<TemplateElmt>& elmt, std::int32_t row, std::int32_t col) {
    Row& cells = GetRow(static_cast<std::uint32_t>(row));
    CheckColumn(static_cast<std::uint32_t>(col), cells.size());
    cells[static_cast<std::size_t>(col)] = elmt;
}

void LayoutTemplate::AddChild(const DiPtr<LayoutTemplate>& child) {
    if (child) {
        children.push_back(child);
    }
}

} // namespace Tarnex
