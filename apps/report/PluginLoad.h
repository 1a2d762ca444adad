// SPDX-License-Identifier: MIT
// From a path to what a plug-in says.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <string>

namespace Tarnex::Report {

/// Larger files are refused; they are read whole. [bytes]
inline constexpr std::uint64_t kLargestPlugin = std::uint64_t{1} << 30;

/// A plug-in that was read.
struct LoadedPlugin {
    std::string path; ///< as it was given [UTF-8]
    std::string bytes;
    PluginFile file;
};

/// Reads the file at `path` (UTF-8). Throws UsageError, which names the file, when it does not
/// exist, is no ordinary file, is larger than kLargestPlugin, cannot be read, or is no plug-in.
LoadedPlugin LoadPlugin(const std::string& path);

} // namespace Tarnex::Report
