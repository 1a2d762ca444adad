// SPDX-License-Identifier: MIT
// What differs between two plug-ins.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <string>
#include <vector>

namespace Tarnex::Report {

/// One difference, in UTF-8.
struct Difference {
    std::string kind;    ///< a word for programs, such as "reference-moved"
    std::string subject; ///< what differs, such as "cell "Crypt""
    std::string text;    ///< how the second differs from the first

    bool operator==(const Difference&) const = default;
};

/// The differences from `a` to `b`, in the order header, containers, cells; those of one subject
/// follow each other. Cells and containers are matched by name without regard to case, references
/// by object: first those that are equal, then those at the same position, then the nearest. When
/// the identifiers of all containers of each file carry one stamp, the stamps may differ.
std::vector<Difference> ComparePlugins(const PluginFile& a, const PluginFile& b);

} // namespace Tarnex::Report
