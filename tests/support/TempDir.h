// SPDX-License-Identifier: MIT
// A folder of a test's own.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Tarnex::Test {

/// An empty folder that is removed with everything in it when the test ends.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& Path() const { return path; }
    /// The full name of a file in the folder, in UTF-8.
    std::string File(std::string_view name) const;
    /// Writes `content` to a file in the folder and returns its full name.
    std::string Write(std::string_view name, std::string_view content) const;

private:
    std::filesystem::path path;
};

/// Every byte of a file; empty when there is none.
std::string ReadFile(const std::filesystem::path& file);

} // namespace Tarnex::Test
