// SPDX-License-Identifier: MIT
// A named set of theme items.
#pragma once

#include <vaultry/catalogue/ThemeItem.h>
#include <vaultry/foundation/DiPtr.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex {

/// A furniture, creature or treasure theme; which of them is told by the list that holds it.
///
/// Items of a furniture theme may be of the types "Container", "Furniture", "Rug" and "Tapestry",
/// those of a creature theme "Creature", those of a treasure theme any word of ContentMgr::GetList.
/// Another type is logged as an error and its item skipped, but in treasure themes, where the
/// furniture list stands in.
struct VAULTRY_API Theme : public DiRcObject {
    /// For random choices: furniture and treasure themes take part from level 1 on, creature themes
    /// within the levels asked for. Where none fits, that is logged and all take part.
    std::int32_t level = 0;
    std::vector<DiPtr<ThemeItem>> items; ///< placed in this order

    /// The name by which the theme is chosen.
    const std::string& GetName() const { return name; }
    /// Replaces the name; not null.
    void SetName(const char* newName) { name = newName; }

private:
    std::string name;
};

} // namespace Tarnex
