// SPDX-License-Identifier: MIT
#include "tools/text/OrdinaryFile.h"

#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <filesystem>

namespace Tarnex::Report {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const std::string& path, const char* why) {
    throw UsageError('"' + path + "\" " + why);
}

} // namespace

std::uint64_t RequireOrdinaryFile(const std::string& path) {
    const fs::path file = PathFromUtf8(path);
    std::error_code fault;
    const fs::file_status status = fs::status(file, fault);
    if (!fs::exists(status)) {
        Refuse(path, "does not exist");
    }
    if (!fs::is_regular_file(status)) {
        Refuse(path, fs::is_directory(status) ? "is a folder" : "is no ordinary file");
    }
    const std::uintmax_t size = fs::file_size(file, fault);
    if (fault) {
        Refuse(path, "cannot be read");
    }
    if (size > kLargestFile) {
        Refuse(path, "is larger than 1 GiB and is not read");
    }
    return size;
}

} // namespace Tarnex::Report
