// SPDX-License-Identifier: MIT
// Finding the names that were meant.
#pragma once

#include "tools/text/NearNames.h"

#include <vaultry/foundation/DiPtr.h>

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

using Report::EditDistance;
using Report::NearestNames;

/// Half a sentence that offers the nearest of `names`, or all of them when none is near.
std::string OfferNames(std::string_view name, const std::vector<std::string>& names);

/// The names of a list of the configuration, in UTF-8.
std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames);

/// Returns `name` (UTF-8) in the library's code page. Throws UsageError, offering the nearest
/// names, when `names` (of the library) lacks it; names are compared to the letter. `what` is what
/// is named.
std::string
RequireName(const char* what, const std::string& name, const std::vector<std::string>& names);

/// The names of catalogue objects, as the library has them.
template <typename T>
std::vector<std::string> NamesOf(const std::vector<DiPtr<T>>& list) {
    std::vector<std::string> names;
    names.reserve(list.size());
    for (const DiPtr<T>& object : list) {
        names.push_back(object->GetName());
    }
    return names;
}

} // namespace Tarnex::Cli
