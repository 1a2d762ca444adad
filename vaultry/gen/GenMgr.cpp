// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenMgr.h>

#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenIntFixed.h>
#include <vaultry/gen/GenIntRandom.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <fstream>
#include <memory>
#include <string_view>

namespace Tarnex {

namespace {

constexpr const char* kLogSource = "GenMgr";

template <typename T>
DiPtr<T> FirstOf(const std::vector<DiPtr<T>>& list) {
    return list.empty() ? nullptr : list.front();
}

template <typename T>
DiPtr<T> FindByName(const std::vector<DiPtr<T>>& list, std::string_view name) {
    const auto found = std::ranges::find_if(
        list, [name](const DiPtr<T>& object) { return object->GetName() == name; });
    return found == list.end() ? nullptr : *found;
}

// An unknown name keeps the default that was there.
template <typename T>
void ReplaceByName(DiPtr<T>& current, const std::vector<DiPtr<T>>& list, std::string_view name) {
    const DiPtr<T> found = FindByName(list, name);
    if (found) {
        current = found;
    }
}

bool WriteFile(Mod& mod, const char* path) {
    std::ofstream stream(PathFromUtf8(path), std::ios::out | std::ios::binary | std::ios::trunc);
    mod.Write(stream);
    stream.close();
    return stream.good();
}

} // namespace

GenMgr::GenMgr() {
    SeedRandom(static_cast<std::uint32_t>(std::time(nullptr)));
}

GenMgr::~GenMgr() = default;

void GenMgr::Init(const char* configPath) {
    if (StartReading()) {
        ReadConfigFile(configPath, config);
    }
    FinishReading();
}

void GenMgr::InitFromMemory(std::string_view text, const char* name) {
    if (StartReading()) {
        ReadConfigText(text, name, config);
    }
    FinishReading();
}

bool GenMgr::StartReading() {
    config.Reset();
    const std::string fault = StartXmlParser();
    if (!fault.empty()) {
        Logger::WriteError(kLogSource, "Error during XML parser initialization: %s", fault.c_str());
    }
    return fault.empty();
}

void GenMgr::FinishReading() {
    ChooseDefaults();
    Logger::WriteInfo(kLogSource, "Finished parsing XML config file.");
}

void GenMgr::ChooseDefaults() {
    defTemplate = FirstOf(config.roomLayouts);
    defTheme = FirstOf(config.themes);
    defTileSet = FirstOf(config.roomTileSets);
    defTreasureTheme = FirstOf(config.treasureThemes);
}

ModResult GenMgr::CreateMod(const char* outPath, const char* name, bool fixedLayout) {
    const ModResult result = Generate(name, fixedLayout);
    return result == ModResult::Written ? WriteMod(outPath) : result;
}

ModResult GenMgr::WriteMod(const char* outPath) {
    return WriteFile(mod, outPath) ? ModResult::Written : ModResult::NotWritten;
}

ModResult GenMgr::Generate(const char* name, bool fixedLayout) {
    if (!CheckDefaults()) {
        return ModResult::Refused;
    }
    mod.ResetContent();
    report.levels.clear();
    cellName = name;
    if (!RunGenerator(fixedLayout)) {
        return ModResult::Refused;
    }
    const bool canceled = jobStatus != nullptr && jobStatus->HasBeenCanceled();
    return canceled ? ModResult::Canceled : ModResult::Written;
}

bool GenMgr::CheckDefaults() const {
    if (!defTileSet) {
        Logger::WriteError(kLogSource, "Unable to generate:  No default tile set.");
        return false;
    }
    if (!defTemplate) {
        Logger::WriteError(kLogSource, "Unable to generate:  No default layout template.");
        return false;
    }
    return true;
}

// Whatever a generator throws ends here: no exception crosses the library's border.
bool GenMgr::RunGenerator(bool fixedLayout) {
    try {
        if (fixedLayout) {
            GenIntFixed(*this).Gen();
        } else {
            GenIntRandom(*this).Gen();
        }
        return true;
    } catch (const std::exception& e) {
        Logger::WriteError(kLogSource, "Internal:  Generation failed: %s", e.what());
        return false;
    }
}

void GenMgr::SetDefaultTileSet(const char* name, bool cave) {
    ReplaceByName(defTileSet, cave ? config.caveTileSets : config.roomTileSets, name);
}

void GenMgr::SetDefaultTemplate(const char* name, bool cave) {
    ReplaceByName(defTemplate, cave ? config.caveLayouts : config.roomLayouts, name);
}

void GenMgr::SetDefaultTheme(const char* name) {
    defTheme = FindByName(config.themes, name);
}

void GenMgr::SetDefaultCreatureTheme(const char* name) {
    defCreatureTheme = FindByName(config.creatureThemes, name);
}

void GenMgr::SetDefaultTreasureTheme(const char* name) {
    defTreasureTheme = FindByName(config.treasureThemes, name);
}

} // namespace Tarnex
