// SPDX-License-Identifier: MIT
// Which references of two cells are the same object.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <cstddef>
#include <functional>
#include <vector>

namespace Tarnex::Report {

/// A pair of references; one of them may be null.
struct RefPair {
    const PluginRef* a = nullptr;
    const PluginRef* b = nullptr;
};

/// The text that references of the same object share.
using RefKey = std::function<std::string(const PluginRef&)>;

/// Among so many references each looks for the nearest.
inline constexpr std::size_t kMostCompared = 1000;

/// Pairs the references of two cells: among those of one key first the equal ones, then those at
/// the same position, then each with the nearest of the first kMostCompared that are left. The
/// pairs stand in the order of `a`; those of `b` that are left follow in their own.
std::vector<RefPair>
MatchRefs(const std::vector<PluginRef>& a, const std::vector<PluginRef>& b, const RefKey& keyOf);

/// Equality of numbers, for which not-a-number equals itself.
bool SameNumber(float a, float b);
bool SamePoint(const Di3Point& a, const Di3Point& b);
bool SameDestination(const PluginRef& a, const PluginRef& b);

} // namespace Tarnex::Report
