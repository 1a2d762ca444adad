// SPDX-License-Identifier: MIT
#include "tools/engine/EnginePlaces.h"

#include <algorithm>
#include <string_view>

namespace Tarnex::Report {

namespace {

std::vector<std::string> Split(std::string_view list, char sign) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(sign), list.size());
        if (end > 0) {
            parts.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return parts;
}

} // namespace

std::vector<std::string> EnginePaths(System system, const Environment& environment) {
    const bool windows = system == System::Windows;
    std::vector<std::string> paths = Split(environment("PATH"), windows ? ';' : ':');
    // Its installer names no path, and Debian's games are on that of a user, not of an
    // administrator.
    paths.push_back(windows ? environment("ProgramFiles") + "\\OpenMW" : "/usr/games");
    for (std::string& path : paths) {
        path += windows ? "\\openmw.exe" : "/openmw";
    }
    return paths;
}

} // namespace Tarnex::Report
