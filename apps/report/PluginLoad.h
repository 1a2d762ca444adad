// SPDX-License-Identifier: MIT
// From a path to what a plug-in says.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <stdexcept>
#include <string>

namespace Tarnex::Report {

/// Why a file is no plug-in that could be read, in one line that names it.
class LoadError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Larger files are refused; they are read whole. [bytes]
inline constexpr std::uint64_t kLargestPlugin = std::uint64_t{1} << 30;

/// A plug-in that was read.
struct LoadedPlugin {
    std::string path; ///< as it was given [UTF-8]
    std::string bytes;
    PluginFile file;
};

/// Reads the file at `path` (UTF-8). Throws LoadError when it does not exist, is no ordinary file,
/// is larger than kLargestPlugin, cannot be read, or is no plug-in.
LoadedPlugin LoadPlugin(const std::string& path);

} // namespace Tarnex::Report
