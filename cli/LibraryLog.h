// SPDX-License-Identifier: MIT
// The library's log and its errors.
#pragma once

#include "cli/Console.h"

#include <vaultry/foundation/Problem.h>

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

    /// What went wrong so far.
    const std::vector<Problem>& Problems() const { return heard.Get(); }
    /// Its error lines, in UTF-8.
    std::vector<std::string> Errors() const { return ErrorLines(Problems()); }
    /// Takes over what a run tells in its result.
    void Add(const std::vector<Problem>& problems);

    /// Says that the file lacks lines and why; returns what was said, nothing while it is whole.
    std::optional<std::string> SayFault(const Console& console) const;

private:
    std::string path; // empty without a file
    ProblemList heard;
};

} // namespace Tarnex::Cli
