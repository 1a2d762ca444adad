// SPDX-License-Identifier: MIT
// A plug-in in words and as JSON.
#pragma once

#include <vaultry/output/PluginFile.h>
#include <vaultry/run/Arrival.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// What a configuration tells of a plug-in that was made from it.
struct KnownTotals {
    std::string config;          ///< its name
    std::uint64_t areas = 0;     ///< between doorways
    std::uint64_t creatures = 0; ///< that are placed
    std::int64_t treasure = 0;   ///< worth of what is in the containers [gold pieces]
};

/// What there is to say about one file. The plug-in and its findings must outlive it.
struct Inspection {
    std::string path; ///< as it was given [UTF-8]
    const PluginFile& file;
    const std::vector<PluginFinding>& findings; ///< see FindInconsistencies
    std::vector<Arrival> arrivals{}; ///< by the number of their cell in the file, where known
    std::string command{};           ///< that makes it again, where the file tells [UTF-8]
    std::optional<KnownTotals> known{};
};

/// Prints header, cells, containers and findings for people, in UTF-8; with `refs` every reference
/// too.
void PrintInspection(const Inspection& inspection, bool refs, std::ostream& out);

/// Everything that was read and found, as one JSON object. A number that is not finite is null.
std::string ToJson(const Inspection& inspection);

} // namespace Tarnex::Report
