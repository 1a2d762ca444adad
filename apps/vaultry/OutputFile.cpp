// SPDX-License-Identifier: MIT
#include "apps/vaultry/OutputFile.h"

#include "apps/report/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <random>

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// Two runs at once are kept apart by 64 bits of chance. The name does not grow with the
// destination's, which may be as long as the system allows.
fs::path UnusedName(const fs::path& folder) {
    std::random_device chance;
    fs::path name;
    do {
        name = folder /
               (".vaultry-" + std::to_string(chance()) + '-' + std::to_string(chance()) + ".tmp");
    } while (fs::exists(fs::symlink_status(name)));
    return name;
}

} // namespace

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code fault;
    const fs::path first = PathFromUtf8(a);
    const fs::path second = PathFromUtf8(b);
    if (fs::equivalent(first, second, fault) && !fault) {
        return true;
    }
    const fs::path whole = fs::weakly_canonical(fs::absolute(first, fault), fault);
    return !fault && whole == fs::weakly_canonical(fs::absolute(second, fault), fault);
}

void RequireFilePlace(const char* what, const std::string& path) {
    const fs::path file = PathFromUtf8(path);
    const std::string name = std::string(what) + " \"" + path + "\"";
    std::error_code fault;
    if (file.empty()) {
        throw UsageError(std::string(what) + " needs a name");
    }
    if (!file.has_filename() || fs::is_directory(file, fault)) {
        throw UsageError(name + " is a folder");
    }
    if (!fs::is_directory(FolderOf(file), fault)) {
        throw UsageError(name + ": its folder does not exist");
    }
}

std::string NotWrittenWords(const std::string& path) {
    return '"' + path + "\" could not be written (full disk or protected folder?)";
}

OutputFile::OutputFile(const std::string& path) : destination(PathFromUtf8(path)) {
    RequireFilePlace("the output file", path);
    std::error_code fault;
    const fs::file_status status = fs::status(destination, fault);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw UsageError("the output file \"" + path + "\" is no ordinary file");
    }
    if (fs::exists(status)) {
        // A link stays a link: what it leads to is replaced.
        destination = fs::canonical(destination);
    }
    temporary = UnusedName(FolderOf(destination));
}

OutputFile::~OutputFile() {
    std::error_code ignored;
    fs::remove(temporary, ignored);
}

std::string OutputFile::TemporaryPath() const {
    const std::u8string name = temporary.u8string();
    return {name.begin(), name.end()};
}

// Windows knows only whether a file may be written, and one that may not is not replaced.
void OutputFile::KeepPermissions() const {
#ifndef _WIN32
    std::error_code ignored;
    const fs::file_status replaced = fs::status(destination, ignored);
    if (fs::exists(replaced)) {
        fs::permissions(temporary, replaced.permissions(), ignored);
    }
#endif
}

std::uintmax_t OutputFile::Commit() {
    KeepPermissions();
    const std::uintmax_t bytes = fs::file_size(temporary);
    fs::rename(temporary, destination);
    return bytes;
}

} // namespace Tarnex::Cli
