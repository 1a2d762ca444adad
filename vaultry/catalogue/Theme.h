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
struct VAULTRY_API Theme : public DiRcObject {
    std::int32_t level = 0;              ///< random choices take levels of 1 and more only
    std::vector<DiPtr<ThemeItem>> items; ///< placed in this order

    /// The name by which the theme is chosen.
    const std::string& GetName() const { return name; }
    /// Replaces the name; not null.
    void SetName(const char* newName) { name = newName; }

private:
    std::string name;
};

} // namespace Tarnex
