// SPDX-License-Identifier: MIT
// Who lets go of a run's layouts.
#pragma once

#include <vaultry/layout/Layout.h>

#include <utility>
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

    /// Takes charge of a root layout; not null.
    Layout& Own(const DiPtr<Layout>& layout) { return *layouts.emplace_back(layout); }

    /// The layouts, in the order taken.
    const std::vector<DiPtr<Layout>>& All() const { return layouts; }

private:
    std::vector<DiPtr<Layout>> layouts;
};

/// Takes a layout apart unless it is released: for one under construction, whatever ends that.
class LayoutGuard {
public:
    /// Guards a root layout; null is allowed.
    explicit LayoutGuard(const DiPtr<Layout>& layout_) : layout(layout_) {}
    LayoutGuard(const LayoutGuard&) = delete;
    LayoutGuard& operator=(const LayoutGuard&) = delete;

    ~LayoutGuard() {
        if (layout) {
            layout->Dissolve();
        }
    }

    /// The layout, which is whole now.
    DiPtr<Layout> Release() { return std::exchange(layout, nullptr); }

private:
    DiPtr<Layout> layout;
};

} // namespace Tarnex
