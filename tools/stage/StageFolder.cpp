// SPDX-License-Identifier: MIT
#include "tools/stage/StageFolder.h"

#include "tools/stage/StageRecords.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/game/EngineConfig.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

namespace Tarnex::Report {

namespace {

namespace fs = std::filesystem;

std::string Utf8Of(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

// Between quotation marks, as the engine reads it.
std::string EngineQuoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c == '"' || c == '&' ? std::string("&") + c : std::string(1, c);
    }
    return quoted + '"';
}

bool IsStageFile(const fs::path& path) {
    std::array<char, 128> start{};
    std::ifstream file(path, std::ios::binary);
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    return IsStage({start.data(), static_cast<std::size_t>(file.gcount())});
}

// Any of its files of records tells.
bool IsStageFolder(const fs::path& folder) {
    std::error_code fault;
    return std::ranges::any_of(
        fs::directory_iterator(folder, fault), [](const fs::directory_entry& entry) {
            std::error_code unknown;
            return entry.is_regular_file(unknown) && IsStageFile(entry.path());
        });
}

void RequireMasterName(const std::string& name) {
    const std::string upper = ToUpper(name);
    const bool plain = name.find_first_of("/\\:\"*?<>|") == std::string::npos;
    if (!plain || name.size() < 5 || !(upper.ends_with(".ESM") || upper.ends_with(".ESP"))) {
        throw UsageError("\"" + name + "\" is no name of a master, such as Morrowind.esm");
    }
}

void RequireFolder(const std::string& name,
                   const fs::path& folder,
                   const std::vector<fs::path>& taken) {
    std::error_code fault;
    const bool exists = fs::exists(folder, fault);
    if (exists && !fs::is_directory(folder, fault)) {
        throw UsageError("\"" + name + "\" is no folder");
    }
    if (!exists || IsStageFolder(folder)) {
        return;
    }
    if (std::ranges::any_of(taken, [&folder](const fs::path& other) {
            std::error_code none;
            return fs::equivalent(folder, other, none);
        })) {
        throw UsageError("\"" + name +
                         "\" holds the game's data; a stage needs a folder of its own");
    }
    if (!fs::is_empty(folder, fault)) {
        throw UsageError("\"" + name + "\" holds other files; a stage needs a folder of its own");
    }
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    std::error_code fault;
    fs::create_directories(path.parent_path(), fault);
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw FileError("\"" + Utf8Of(path) + "\" cannot be written");
    }
}

// What the engine needs to be told.
std::string HintFor(const fs::path& place, const std::string& master) {
    return "# To stand on this stage; the name of a plug-in follows in a line like the last one.\n"
           "data=" +
           EngineQuoted(Utf8Of(fs::absolute(place))) + "\nencoding=win1252\ncontent=" + master +
           "\n";
}

} // namespace

void WriteStage(const StageFiles& stage,
                const std::string& folder,
                const std::string& master,
                const std::vector<fs::path>& taken) {
    RequireMasterName(master);
    const fs::path place = PathFromUtf8(folder);
    RequireFolder(folder, place, taken);
    const fs::path records = place / PathFromUtf8(master);
    std::error_code fault;
    if (fs::exists(records, fault) && !IsStageFile(records)) {
        throw UsageError("\"" + folder + "\" holds a " + master + " that is no stage");
    }
    // First, so that a stage that was broken off is known for one and can be made anew.
    WriteFile(records, stage.master);
    for (const auto& [path, bytes] : stage.files) {
        WriteFile(place / PathFromUtf8(path), bytes);
    }
    WriteFile(place / "openmw.cfg", HintFor(place, master));
}

std::vector<fs::path> GameFolders() {
    std::vector<fs::path> folders;
    for (const std::string& folder : InstalledEngineConfig().folders) {
        folders.push_back(PathFromUtf8(folder));
    }
    return folders;
}

} // namespace Tarnex::Report
