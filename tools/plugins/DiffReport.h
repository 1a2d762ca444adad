// SPDX-License-Identifier: MIT
// The differences of two plug-ins in words and as JSON.
#pragma once

#include "tools/plugins/PluginDiff.h"
#include "tools/plugins/PluginLoad.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// What came of a comparison.
struct DiffResult {
    std::string pathOfA; ///< as it was given [UTF-8]
    std::string pathOfB;
    std::vector<Difference> differences;
};

/// Compares two plug-ins. Where their bytes differ in nothing that is read or compared, that is the
/// one difference.
DiffResult Diff(const LoadedPlugin& a, const LoadedPlugin& b);

/// Prints the differences under what they concern, or that there are none.
void PrintDiff(const DiffResult& result, std::ostream& out);

std::string ToJson(const DiffResult& result);

} // namespace Tarnex::Report
