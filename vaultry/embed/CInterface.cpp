// SPDX-License-Identifier: MIT
// The C interface: texts in and out, and no exception past it.
#include <vaultry/embed/GeneratorOptions.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/run/KeptDefaults.h>
#include <vaultry/run/ReportJson.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <new>
#include <random>

namespace {

using namespace Tarnex;

constexpr unsigned kStampBits = 53; // as many as a floating-point number holds

constexpr const char* kBusy =
    "the generator is at work: until that call has ended it can be used for nothing else";

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

// A call to a generator, unless another one is under way: in a progress function, or on another
// thread. Both the library's log and chance are the call's own, so that no call leaves anything for
// the next and all generators may work at once.
template <typename Call>
vaultry_result Enter(vaultry_generator& generator, const Call& call) noexcept {
    if (generator.busy.exchange(true)) {
        return VAULTRY_BUSY;
    }
    const vaultry_result result = Guard([&] {
        RunState state;
        const UseRunState use(&state);
        Logger::InitWithoutFile();
        return call(use.Outer());
    });
    generator.busy = false;
    return result;
}

// Whatever an error quotes, the C side gets one line of UTF-8.
void Tell(vaultry_generator& generator, std::string_view utf8) {
    generator.errors.push_back(ForTerminal(utf8));
}

void TellLog(vaultry_generator& generator) {
    for (const std::string& line : Logger::GetErrors()) {
        Tell(generator, ToUtf8(line));
    }
}

bool IsUsable(GenMgr& manager) {
    return !manager.GetRoomTileSets().empty() || !manager.GetCaveTileSets().empty();
}

template <typename Read>
vaultry_result ReadConfig(vaultry_generator* generator, const Read& read) {
    return Enter(*generator, [generator, &read](RunState*) {
        generator->errors.clear();
        generator->manager.SetDefaultCreatureTheme(nullptr);
        read(generator->manager);
        TellLog(*generator);
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

ModResult Generate(vaultry_generator& generator, RunState* callers) {
    GenMgr& manager = generator.manager;
    const KeptDefaults defaults(manager);
    FixChance(generator);
    const std::string master = FromUtf8(generator.master.value_or(""));
    manager.SetMasterFile(generator.master ? master.c_str() : nullptr, generator.masterSize);
    manager.SetNameSingleLevel(true);
    SetContainerStamp(generator.lastStamp);
    SeedRandom(generator.lastSeed);
    generator.progress.Restart(generator.fixed ? 1 : manager.randomInfo.numLevels, callers);
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

void ProgressCall::Restart(std::uint32_t newSteps, RunState* newCallers) {
    canceled = false;
    callers = newCallers;
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
        const UseRunState use(callers);
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
        // The chance that a new manager seeds is nobody's.
        RunState state;
        const UseRunState use(&state);
        generator = new vaultry_generator;
        return VAULTRY_OK;
    });
    return generator;
}

vaultry_result vaultry_destroy(vaultry_generator* generator) {
    if (generator != nullptr && generator->busy) {
        return VAULTRY_BUSY;
    }
    delete generator;
    return VAULTRY_OK;
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
    return Enter(*generator, [=](RunState*) {
        generator->errors.clear();
        const std::string fault = SetOption(*generator, TextOf(option), TextOf(value));
        if (fault.empty()) {
            return VAULTRY_OK;
        }
        Tell(*generator, fault);
        return VAULTRY_BAD_ARGUMENT;
    });
}

const char* vaultry_option(size_t index) {
    return OptionName(index);
}

vaultry_result
vaultry_set_progress(vaultry_generator* generator, vaultry_progress progress, void* context) {
    return Enter(*generator, [=](RunState*) {
        generator->progress.SetFunction(progress, context);
        return VAULTRY_OK;
    });
}

vaultry_result vaultry_generate(vaultry_generator* generator, const char* path) {
    return Enter(*generator, [=](RunState* callers) {
        generator->errors.clear();
        ModResult result = Generate(*generator, callers);
        std::string fault;
        if (result == ModResult::Written) {
            fault = WriteMod(*generator, TextOf(path));
        }
        TellLog(*generator);
        if (!fault.empty()) {
            const bool canceled = generator->progress.HasBeenCanceled();
            result = canceled ? ModResult::Canceled : ModResult::NotWritten;
            Tell(*generator, fault);
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
    const vaultry_result result = Enter(*generator, [generator](RunState*) {
        const GenReport& report = generator->manager.report;
        nlohmann::ordered_json json = {{"walkable", nullptr}, {"levels", LevelsJson(report)}};
        if (!report.levels.empty()) {
            json["walkable"] = report.IsWalkable();
        }
        generator->json = json.dump();
        return VAULTRY_OK;
    });
    return result == VAULTRY_OK ? generator->json.c_str() : nullptr;
}

size_t vaultry_error_count(const vaultry_generator* generator) {
    return generator->busy ? 1 : generator->errors.size();
}

const char* vaultry_error(const vaultry_generator* generator, size_t index) {
    if (generator->busy) {
        return index == 0 ? kBusy : nullptr;
    }
    return index < generator->errors.size() ? generator->errors[index].c_str() : nullptr;
}
