// SPDX-License-Identifier: MIT
// Who lets go of a run's layouts.
#pragma once

#include <vaultry/layout/Layout.h>

#include <vector>

namespace Tarnex {

/// Holds layouts and dissolves them at its end, however a run ends: parents and children, and
/// levels joined by doors, would otherwise keep each other alive.
class LayoutOwner {
public:
    LayoutOwner() = default;
    LayoutOwner(const LayoutOwner&) = delete;
    LayoutOwner& operator=(const LayoutOwner&) = delete;

    ~LayoutOwner() { Clear(); }

    /// Takes charge of a root layout; not null.
    Layout& Own(const DiPtr<Layout>& layout) { return *layouts.emplace_back(layout); }

    /// Dissolves what is held by now.
    void Clear() {
        for (const DiPtr<Layout>& layout : layouts) {
            layout->Dissolve();
        }
        layouts.clear();
    }

    /// Lets the layout taken last go, undissolved.
    DiPtr<Layout> ReleaseLast() {
        DiPtr<Layout> last = layouts.back();
        layouts.pop_back();
        return last;
    }

    /// The layouts, in the order taken.
    const std::vector<DiPtr<Layout>>& All() const { return layouts; }

private:
    std::vector<DiPtr<Layout>> layouts;
};

} // namespace Tarnex
