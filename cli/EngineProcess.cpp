// SPDX-License-Identifier: MIT
#include "cli/EngineProcess.h"

#include "tools/engine/EngineLine.h"
#include "tools/engine/EnginePlaces.h"

#include <vaultry/foundation/CodePage.h>

#include <algorithm>
#include <filesystem>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;

// The installer for Windows names its folder after the version; the last is the newest, for the
// versions that there are.
std::optional<std::string> NewestInstalled() {
    std::error_code fault;
    fs::path newest;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(PathFromUtf8(EnvironmentValue("ProgramFiles")), fault)) {
        const fs::path program = entry.path() / "openmw.exe";
        if (Utf8(entry.path().filename()).starts_with("OpenMW") && fs::exists(program, fault)) {
            newest = std::max(newest, program);
        }
    }
    return newest.empty() ? std::nullopt : std::optional(Utf8(newest));
}

} // namespace

#ifdef _WIN32

std::optional<int> RunProgram(const std::vector<std::string>& words) {
    std::vector<std::wstring> wide;
    for (const std::string& word : words) {
        wide.push_back(PathFromUtf8(Report::EngineLine(kThisSystem, {word})).wstring());
    }
    std::vector<const wchar_t*> arguments(wide.size() + 1); // a null pointer at the end
    std::ranges::transform(
        wide, arguments.begin(), [](const std::wstring& word) { return word.c_str(); });
    const std::wstring program = PathFromUtf8(words.front()).wstring();
    const std::intptr_t status = _wspawnvp(_P_WAIT, program.c_str(), arguments.data());
    return status == -1 ? std::nullopt : std::optional(static_cast<int>(status));
}

#else

std::optional<int> RunProgram(const std::vector<std::string>& words) {
    std::vector<std::string> owned = words;
    std::vector<char*> arguments(owned.size() + 1); // a null pointer at the end
    std::ranges::transform(owned, arguments.begin(), [](std::string& word) { return word.data(); });
    execvp(arguments.front(), arguments.data());
    return std::nullopt;
}

#endif

std::optional<std::string> FindEngine() {
    for (const std::string& path : Report::EnginePaths(kThisSystem, EnvironmentValue)) {
        std::error_code fault;
        if (fs::is_regular_file(PathFromUtf8(path), fault)) {
            return path;
        }
    }
    return NewestInstalled();
}

} // namespace Tarnex::Cli
