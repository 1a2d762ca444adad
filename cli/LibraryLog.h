// SPDX-License-Identifier: MIT
// The library's log and its error lines.
#pragma once

#include "cli/Console.h"

#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// While one lives, the library logs to the file it names, or to no file at all.
class LibraryLog {
public:
    /// `file` is UTF-8. Throws UsageError when the file cannot be written.
    explicit LibraryLog(const std::optional<std::string>& file);
    ~LibraryLog();
    LibraryLog(const LibraryLog&) = delete;
    LibraryLog& operator=(const LibraryLog&) = delete;

    /// The error lines so far, in UTF-8.
    std::vector<std::string> Errors() const;
    /// Called before a run, which begins the library's list anew.
    void KeepErrors() { kept = Errors(); }

    /// Says that the file lacks lines and why; returns what was said, nothing while it is whole.
    std::optional<std::string> SayFault(const Console& console) const;

private:
    std::string path; // empty without a file
    std::vector<std::string> kept;
};

} // namespace Tarnex::Cli
