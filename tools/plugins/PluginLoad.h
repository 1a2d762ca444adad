// SPDX-License-Identifier: MIT
// From a path to what a plug-in says.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <string>

namespace Tarnex::Report {

/// A plug-in that was read.
struct LoadedPlugin {
    std::string path; ///< as it was given [UTF-8]
    std::string bytes;
    PluginFile file;
};

/// Reads a plug-in held in memory; `name` (UTF-8) stands for its path. Throws UsageError, which
/// names it, when it is no plug-in.
LoadedPlugin ReadLoaded(const std::string& name, std::string bytes);

/// Reads the file at `path` (UTF-8). Throws UsageError, which names the file, for what
/// RequireOrdinaryFile refuses, when it cannot be read, and when it is no plug-in.
LoadedPlugin LoadPlugin(const std::string& path);

} // namespace Tarnex::Report
