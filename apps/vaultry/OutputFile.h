// SPDX-License-Identifier: MIT
// Writing a file so that it is replaced whole or not at all.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace Tarnex::Cli {

/// True when both paths (UTF-8) lead to one file, which need not exist.
bool SameFile(const std::string& a, const std::string& b);

/// Throws UsageError unless `path` (UTF-8) can be a file: in a folder that exists and itself no
/// folder. `what` is what the file is.
void RequireFilePlace(const char* what, const std::string& path);

/// Says that the file `path` could not be written, and why that may be.
std::string NotWrittenWords(const std::string& path);

/// A file that is written beside its destination under a name of its own and takes the
/// destination's name when it is complete. Until then an existing file stays as it is; an
/// uncommitted one is removed at the end.
class OutputFile {
public:
    /// Nothing is created yet. Throws UsageError when `path` (UTF-8) cannot be written to: see
    /// RequireFilePlace, and devices and pipes, which could not be replaced, are refused too.
    explicit OutputFile(const std::string& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Where to write. [UTF-8]
    std::string TemporaryPath() const;

    /// Replaces the destination by what was written and returns its size [bytes]; the permissions
    /// of a file that is replaced are kept. Throws std::filesystem::filesystem_error.
    std::uintmax_t Commit();

private:
    void KeepPermissions() const;

    std::filesystem::path destination;
    std::filesystem::path temporary;
};

} // namespace Tarnex::Cli
