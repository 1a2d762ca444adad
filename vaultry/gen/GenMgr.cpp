// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenMgr.h>

#include <vaultry/catalogue/ConfigLoader.h>
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenIntFixed.h>
#include <vaultry/gen/GenIntRandom.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/layout/GridElmt.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <string_view>

namespace Tarnex {

namespace {

constexpr const char* OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

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

// What a caller's status throws counts as a wish to stop: the parser, through which it would pass,
// is not made for the exceptions of others.
class CalmStatus : public JobStatus {
public:
    explicit CalmStatus(const JobStatus& callers) : status(callers) {}

    bool HasBeenCanceled() const override {
        try {
            return status.HasBeenCanceled();
        } catch (...) {
            return true;
        }
    }

private:
    const JobStatus& status;
};

bool WriteFile(Mod& mod, const char* path) try {
    std::ofstream stream(PathFromUtf8(path), std::ios::out | std::ios::binary | std::ios::trunc);
    mod.Write(stream);
    // Before the question: what was still on its way may find the disk full.
    stream.close();
    return stream.good();
} catch (const std::bad_alloc&) {
    ReportProblem({ProblemKind::WriteMemory});
    return false;
} catch (const std::filesystem::filesystem_error&) {
    // Windows has no name for a path that is not UTF-8.
    return false;
}

// What a run lets go of serves the next one, on whatever thread that is.
struct SharedAtTheEnd {
    ~SharedAtTheEnd() { GridElmt::ShareMemory(); }
};

} // namespace

GenMgr::GenMgr() {
    // Or front ends that never seed would make the same dungeon each time.
    SeedRandom(static_cast<std::uint32_t>(std::time(nullptr)));
}

GenMgr::~GenMgr() = default;

void GenMgr::Init(const char* configPath) {
    Read([this, configPath] { return ReadConfigFile(OrEmpty(configPath), config); });
}

void GenMgr::Init(const char* configPath, const JobStatus& status, std::string* copy) {
    const CalmStatus calm(status);
    Read([&] { return ReadConfigFile(OrEmpty(configPath), config, &calm, copy); });
}

void GenMgr::InitFromMemory(std::string_view text, const char* name) {
    Read([this, text, name] { return ReadConfigText(text, OrEmpty(name), config); });
}

void GenMgr::InitFromMemory(std::string_view text, const char* name, const JobStatus& status) {
    const CalmStatus calm(status);
    Read([&] { return ReadConfigText(text, OrEmpty(name), config, &calm); });
}

// What was read until memory ran out or that was cancelled would pass for a whole configuration.
template <typename ReadConfig>
void GenMgr::Read(ReadConfig readConfig) {
    // Before anything is read: a manager never holds parts of two configurations.
    config.Reset();
    configFault.reset();
    try {
        if (StartReading()) {
            configFault = readConfig();
        }
    } catch (const std::bad_alloc&) {
        config.Reset();
        ReportProblem({ProblemKind::ReadMemory});
    } catch (const LoadCanceled&) {
        config.Reset();
    }
    ChooseDefaults();
    Logger::WriteInfo("GenMgr", "Finished parsing XML config file.");
}

bool GenMgr::StartReading() {
    const std::string fault = StartXmlParser();
    if (!fault.empty()) {
        ReportProblem({ProblemKind::ParserUnavailable, {fault}});
    }
    return fault.empty();
}

void GenMgr::ChooseDefaults() {
    // Rooms, not caves. Creatures are not among the defaults: a dungeon is empty of them until
    // asked.
    defTemplate = FirstOf(config.roomLayouts);
    defTheme = FirstOf(config.themes);
    defTileSet = FirstOf(config.roomTileSets);
    defTreasureTheme = FirstOf(config.treasureThemes);
}

ModResult GenMgr::CreateMod(const char* outPath, const char* name, bool fixedLayout) {
    const ModResult result = Generate(name, fixedLayout);
    return result == ModResult::Written ? WriteMod(outPath) : result;
}

// What a run left that did not come to its end would pass for a whole plug-in.
ModResult GenMgr::WriteMod(const char* outPath) {
    if (!generated) {
        ReportProblem({ProblemKind::NothingGenerated});
        return ModResult::Refused;
    }
    return WriteFile(mod, OrEmpty(outPath)) ? ModResult::Written : ModResult::NotWritten;
}

ModResult GenMgr::Generate(const char* name, bool fixedLayout) {
    generated = false;
    if (!CheckDefaults()) {
        return ModResult::Refused;
    }
    const SharedAtTheEnd memory;
    // Behind the checks: a run that is refused leaves what the last one made.
    mod.ResetContent();
    if (!RunGenerator(OrEmpty(name), fixedLayout)) {
        return ModResult::Refused;
    }
    generated = !report.canceled;
    return generated ? ModResult::Written : ModResult::Canceled;
}

bool GenMgr::CheckDefaults() const {
    // The first lack alone is told. Random levels need no template, and are refused without one
    // too.
    if (!defTileSet) {
        ReportProblem({ProblemKind::NoTileSet});
        return false;
    }
    if (!defTemplate) {
        ReportProblem({ProblemKind::NoLayout});
        return false;
    }
    return true;
}

// Whatever a generator throws ends here: no exception crosses the library's border.
bool GenMgr::RunGenerator(const char* name, bool fixedLayout) {
    try {
        // Random runs write over it; each starts from what it was asked for.
        cellName = name;
        if (fixedLayout) {
            GenIntFixed(*this).Gen();
        } else {
            GenIntRandom(*this).Gen();
        }
        // A wish that came after the last question counts like one before.
        report.canceled = report.canceled || (jobStatus != nullptr && jobStatus->HasBeenCanceled());
        return true;
    } catch (const std::bad_alloc&) {
        // What was made until then goes first: the line needs memory too.
        mod.ResetContent();
        ReportProblem({ProblemKind::RunMemory});
        return false;
    } catch (const LimitReached&) {
        ReportProblem({ProblemKind::RunTooLarge, {std::to_string(kMaxRunMemory >> 20U)}});
        return false;
    } catch (const std::exception& e) {
        ReportProblem({ProblemKind::RunFailed, {e.what()}});
        return false;
    } catch (...) {
        // Of a caller's object, in whatever way its language has it.
        ReportProblem({ProblemKind::RunFailed, {"unknown exception"}});
        return false;
    }
}

void GenMgr::SetDefaultTileSet(const char* name, bool cave) {
    ReplaceByName(defTileSet, cave ? config.caveTileSets : config.roomTileSets, OrEmpty(name));
}

void GenMgr::SetDefaultTemplate(const char* name, bool cave) {
    ReplaceByName(defTemplate, cave ? config.caveLayouts : config.roomLayouts, OrEmpty(name));
}

void GenMgr::SetDefaultTheme(const char* name) {
    // Unlike tile sets and layouts, which no run can do without: an unknown theme means none.
    defTheme = FindByName(config.themes, OrEmpty(name));
}

void GenMgr::SetDefaultCreatureTheme(const char* name) {
    defCreatureTheme = FindByName(config.creatureThemes, OrEmpty(name));
}

void GenMgr::SetDefaultTreasureTheme(const char* name) {
    defTreasureTheme = FindByName(config.treasureThemes, OrEmpty(name));
}

} // namespace Tarnex
