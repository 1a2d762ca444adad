// SPDX-License-Identifier: MIT
// The C interface: texts in and out, and no exception past it.
#include <vaultry/embed/GeneratorOptions.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/ReportJson.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <new>
#include <random>

namespace {

using namespace Tarnex;

constexpr unsigned kStampBits = 53; // as many as a floating-point number holds

const char* TextOf(const char* text) {
    return text == nullptr ? "" : text;
}

// Runs a call. Memory is the one thing that the library throws for.
template <typename Call>
vaultry_result Guard(const Call& call) noexcept {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return VAULTRY_NO_MEMORY;
    } catch (...) {
        return VAULTRY_REFUSED;
    }
}

void KeepErrors(vaultry_generator& generator) {
    generator.errors.clear();
    for (const std::string& line : Logger::GetErrors()) {
        generator.errors.push_back(ToUtf8(line));
    }
    Logger::ResetErrors();
}

bool IsUsable(GenMgr& manager) {
    return !manager.GetRoomTileSets().empty() || !manager.GetCaveTileSets().empty();
}

template <typename Read>
vaultry_result ReadConfig(vaultry_generator* generator, const Read& read) {
    return Guard([generator, &read] {
        Logger::ResetErrors();
        generator->manager.SetDefaultCreatureTheme(nullptr);
        read(generator->manager);
        KeepErrors(*generator);
        return IsUsable(generator->manager) ? VAULTRY_OK : VAULTRY_REFUSED;
    });
}

void FixChance(vaultry_generator& generator) {
    std::random_device chance;
    generator.lastSeed = generator.seed ? *generator.seed : chance();
    const std::uint64_t number = std::uint64_t{chance()} << 32U | chance();
    generator.lastStamp =
        generator.stamp.value_or(static_cast<std::int64_t>(number >> (64U - kStampBits)));
}

vaultry_result ResultOf(ModResult result) {
    switch (result) {
    case ModResult::Written:
        return VAULTRY_OK;
    case ModResult::Refused:
        return VAULTRY_REFUSED;
    case ModResult::Canceled:
        return VAULTRY_CANCELED;
    case ModResult::NotWritten:
        return VAULTRY_NOT_WRITTEN;
    }
    return VAULTRY_REFUSED;
}

ModResult Generate(vaultry_generator& generator) {
    GenMgr& manager = generator.manager;
    FixChance(generator);
    const std::string master = FromUtf8(generator.master.value_or(""));
    manager.SetMasterFile(generator.master ? master.c_str() : nullptr, generator.masterSize);
    manager.SetNameSingleLevel(true);
    SetContainerStamp(generator.lastStamp);
    SeedRandom(generator.lastSeed);
    generator.progress.Restart(generator.fixed ? 1 : manager.randomInfo.numLevels);
    manager.SetJobStatus(&generator.progress);
    const std::string cell = FromUtf8(generator.cell);
    const ModResult result = manager.Generate(cell.c_str(), generator.fixed);
    manager.SetJobStatus(nullptr);
    return result;
}

// Unlike CreateMod this keeps a file that is there until the new one is whole. Returns why there is
// none, or nothing.
std::string WriteMod(vaultry_generator& generator, const char* path) {
    try {
        SafeFile file(path);
        generator.manager.mod.Write(file.Open(&generator.progress));
        file.Finish();
        file.Commit();
        return {};
    } catch (const FileError& e) {
        return e.what();
    }
}

} // namespace

namespace Tarnex {

void ProgressCall::SetFunction(vaultry_progress newFunction, void* newContext) {
    function = newFunction;
    context = newContext;
}

void ProgressCall::Restart(std::uint32_t newSteps) {
    canceled = false;
    steps = static_cast<std::int32_t>(std::min<std::uint32_t>(newSteps, INT32_MAX));
    text.clear();
    JobStatus::SetPos(0);
}

bool ProgressCall::HasBeenCanceled() const {
    Ask();
    return canceled;
}

void ProgressCall::SetPos(std::int32_t position) {
    JobStatus::SetPos(position);
    Ask();
}

void ProgressCall::SetText(const std::string& newText) {
    text = ToUtf8(newText);
    Ask();
}

// A run that was cancelled stays so, whatever a later call answers.
void ProgressCall::Ask() const {
    if (function != nullptr && !canceled) {
        canceled = function(context, text.c_str(), GetPos(), steps) != 0;
    }
}

} // namespace Tarnex

const char* vaultry_version(void) {
    return VAULTRY_VERSION;
}

vaultry_generator* vaultry_create(void) {
    vaultry_generator* generator = nullptr;
    Guard([&generator] {
        Logger::InitWithoutFile();
        generator = new vaultry_generator;
        return VAULTRY_OK;
    });
    return generator;
}

void vaultry_destroy(vaultry_generator* generator) {
    delete generator;
}

vaultry_result vaultry_init(vaultry_generator* generator, const char* path) {
    return ReadConfig(generator, [path](GenMgr& manager) { manager.Init(TextOf(path)); });
}

vaultry_result vaultry_init_from_memory(vaultry_generator* generator,
                                        const char* text,
                                        size_t length,
                                        const char* name) {
    return ReadConfig(generator, [=](GenMgr& manager) {
        const std::string_view document(TextOf(text), text == nullptr ? 0 : length);
        manager.InitFromMemory(document, TextOf(name));
    });
}

vaultry_result vaultry_set(vaultry_generator* generator, const char* option, const char* value) {
    return Guard([=] {
        generator->errors.clear();
        std::string fault = SetOption(*generator, TextOf(option), TextOf(value));
        if (fault.empty()) {
            return VAULTRY_OK;
        }
        generator->errors.push_back(std::move(fault));
        return VAULTRY_BAD_ARGUMENT;
    });
}

const char* vaultry_option(size_t index) {
    return OptionName(index);
}

void vaultry_set_progress(vaultry_generator* generator, vaultry_progress progress, void* context) {
    generator->progress.SetFunction(progress, context);
}

vaultry_result vaultry_generate(vaultry_generator* generator, const char* path) {
    return Guard([=] {
        Logger::ResetErrors();
        ModResult result = Generate(*generator);
        std::string fault;
        if (result == ModResult::Written) {
            fault = WriteMod(*generator, TextOf(path));
        }
        KeepErrors(*generator);
        if (!fault.empty()) {
            const bool canceled = generator->progress.HasBeenCanceled();
            result = canceled ? ModResult::Canceled : ModResult::NotWritten;
            generator->errors.push_back(std::move(fault));
        }
        return ResultOf(result);
    });
}

uint32_t vaultry_last_seed(const vaultry_generator* generator) {
    return generator->lastSeed;
}

int64_t vaultry_last_stamp(const vaultry_generator* generator) {
    return generator->lastStamp;
}

const char* vaultry_walkability_json(vaultry_generator* generator) {
    const vaultry_result result = Guard([generator] {
        const GenReport& report = generator->manager.report;
        const char* walkable = report.levels.empty() ? "null"
                               : report.IsWalkable() ? "true"
                                                     : "false";
        generator->json =
            "{\"walkable\":" + std::string(walkable) + ",\"levels\":" + LevelsToJson(report) + "}";
        return VAULTRY_OK;
    });
    return result == VAULTRY_OK ? generator->json.c_str() : nullptr;
}

size_t vaultry_error_count(const vaultry_generator* generator) {
    return generator->errors.size();
}

const char* vaultry_error(const vaultry_generator* generator, size_t index) {
    return index < generator->errors.size() ? generator->errors[index].c_str() : nullptr;
}
