// SPDX-License-Identifier: MIT
#include <vaultry/game/GameFiles.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Environment.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/game/EngineConfig.h>
#include <vaultry/game/GameFault.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace Tarnex {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 2> kMasterEnds = {".ESM", ".OMWGAME"};
constexpr std::array<std::string_view, 2> kPluginEnds = {".ESP", ".OMWADDON"};

template <std::size_t Count>
bool HasEnd(std::string_view name, const std::array<std::string_view, Count>& ends) {
    const std::string upper = ToUpper(name);
    return std::ranges::any_of(ends,
                               [&upper](std::string_view end) { return upper.ends_with(end); });
}

std::string TextOfFile(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

bool IsFile(const fs::path& path) {
    std::error_code fault;
    return fs::is_regular_file(path, fault);
}

// The files of folders by their names in capitals; of one name that in the later folder. Windows
// has no name for a path that is not UTF-8.
std::map<std::string, fs::path> FilesIn(const std::vector<fs::path>& folders) {
    std::map<std::string, fs::path> files;
    for (const fs::path& folder : folders) {
        std::error_code fault;
        for (auto entry = fs::directory_iterator(folder, fault);
             !fault && entry != fs::directory_iterator();
             entry.increment(fault)) {
            const std::string name = Utf8(entry->path().filename());
            if ((HasEnd(name, kMasterEnds) || HasEnd(name, kPluginEnds)) && IsFile(entry->path())) {
                files[ToUpper(name)] = entry->path();
            }
        }
    }
    return files;
}

std::vector<fs::path> Listed(const std::vector<std::string>& names,
                             const std::vector<fs::path>& folders) {
    const std::map<std::string, fs::path> files = FilesIn(folders);
    std::vector<fs::path> found;
    for (const std::string& name : names) {
        if (const auto file = files.find(ToUpper(name)); file != files.end()) {
            found.push_back(file->second);
        }
    }
    return found;
}

std::vector<fs::path> PathsOf(const std::vector<std::string>& texts) {
    std::vector<fs::path> paths;
    std::ranges::transform(texts, std::back_inserter(paths), PathFromUtf8);
    return paths;
}

// The lines "GameFile0=Morrowind.esm" of the part "Game Files", by their numbers; those of masters
// before the others. In Windows-1252, as all that the game writes.
std::vector<std::string> NamesInIni(std::string_view text) {
    constexpr std::string_view kKey = "GAMEFILE";
    std::vector<std::pair<std::int32_t, std::string>> numbered;
    bool inside = false;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        const std::size_t sign = line.find('=');
        if (line.starts_with('[')) {
            inside = EqualsNoCase(line, "[Game Files]");
        } else if (inside && sign != std::string::npos && ToUpper(line).starts_with(kKey)) {
            numbered.emplace_back(ParseInt(line.substr(kKey.size(), sign - kKey.size())),
                                  ToUtf8(line.substr(sign + 1)));
        }
    }
    std::ranges::stable_sort(numbered, [](const auto& a, const auto& b) {
        return std::pair(!HasEnd(a.second, kMasterEnds), a.first) <
               std::pair(!HasEnd(b.second, kMasterEnds), b.first);
    });
    std::vector<std::string> names;
    names.reserve(numbered.size());
    for (auto& [number, name] : numbered) {
        names.push_back(std::move(name));
    }
    return names;
}

std::vector<fs::path> MastersByAge(const fs::path& folder) {
    std::vector<std::pair<fs::file_time_type, fs::path>> masters;
    for (const auto& [name, path] : FilesIn({folder})) {
        std::error_code fault;
        const fs::file_time_type written = fs::last_write_time(path, fault);
        if (!fault && HasEnd(name, kMasterEnds)) {
            masters.emplace_back(written, path);
        }
    }
    std::ranges::sort(masters);
    std::vector<fs::path> paths;
    paths.reserve(masters.size());
    for (auto& [time, path] : masters) {
        paths.push_back(std::move(path));
    }
    return paths;
}

std::vector<fs::path> FilesOfFolder(const fs::path& folder) {
    constexpr const char* kIni = "Morrowind.ini";
    if (const fs::path config = folder / "openmw.cfg"; IsFile(config)) {
        EngineConfig said;
        AddEngineConfig(TextOfFile(config), said);
        std::vector<fs::path> folders = {folder};
        for (const fs::path& named : PathsOf(said.folders)) {
            folders.push_back(folder / named);
        }
        return Listed(said.content, folders);
    }
    if (IsFile(folder / kIni)) {
        return Listed(NamesInIni(TextOfFile(folder / kIni)), {folder, folder / "Data Files"});
    }
    if (IsFile(folder.parent_path() / kIni)) {
        return Listed(NamesInIni(TextOfFile(folder.parent_path() / kIni)), {folder});
    }
    return MastersByAge(folder);
}

} // namespace

std::vector<fs::path> FindGameFiles(const std::optional<std::string>& folder) {
    if (!folder) {
        const EngineConfig config = InstalledEngineConfig();
        std::vector<fs::path> files = Listed(config.content, PathsOf(config.folders));
        if (files.empty()) {
            throw GameFault(
                "no openmw.cfg names files of the game; name its folder with --game, or "
                "do without: --entrance X,Y,Z and --entrance-region");
        }
        return files;
    }
    const fs::path path = PathFromUtf8(*folder);
    std::error_code fault;
    if (!fs::is_directory(path, fault)) {
        throw GameFault("--game: \"" + *folder + "\" is no folder");
    }
    // Behind a trailing slash the parent would be the folder itself.
    const fs::path place = fs::absolute(path).lexically_normal();
    std::vector<fs::path> files = FilesOfFolder(place.has_filename() ? place : place.parent_path());
    if (files.empty()) {
        throw GameFault("--game: \"" + *folder +
                        "\" has no files that the game loads; name its folder \"Data Files\"");
    }
    return files;
}

} // namespace Tarnex
