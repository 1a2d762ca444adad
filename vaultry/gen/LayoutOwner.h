// SPDX-License-Identifier: MIT
// Who lets go of a run's layouts.
#pragma once

#include <vaultry/layout/Layout.h>

#include <vector>

namespace Tarnex {

/// Holds the layouts of a run and dissolves them at its end, however it ends: parents and children,
/// and levels joined by doors, would otherwise keep each other alive.
class LayoutOwner {
public:
    LayoutOwner() = default;
    LayoutOwner(const LayoutOwner&) = delete;
    LayoutOwner& operator=(const LayoutOwner&) = delete;

    ~LayoutOwner() {
        for (const DiPtr<Layout>& layout : layouts) {
            layout->Dissolve();
        }
    }

    Layout& Own(const DiPtr<Layout>& layout) { return *layouts.emplace_back(layout); }

    const std::vector<DiPtr<Layout>>& All() const { return layouts; }

private:
    std::vector<DiPtr<Layout>> layouts;
};

} // namespace Tarnex
