// SPDX-License-Identifier: MIT
// The C interface: texts in and out, and no exception past it.
#include <vaultry/embed/GeneratorOptions.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/run/ReportJson.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <new>

namespace {

using namespace Tarnex;

constexpr const char* kBusy =
    "the generator is at work: until that call has ended it can be used for nothing else";

constexpr const char* kUnwalkable =
    " seeds made every room of every level reachable; try another tileset, spacing or size";

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
        ForgetNames(*generator);
        read(generator->manager);
        TellLog(*generator);
        generator->configErrors = generator->errors.size();
        return IsUsable(generator->manager) ? VAULTRY_OK : VAULTRY_REFUSED;
    });
}

RunResult Generate(vaultry_generator& generator, RunState* callers) {
    GenMgr& manager = generator.manager;
    const RunOptions& options = generator.options;
    generator.progress.Restart(options.fixed ? 1 : options.numLevels, callers);
    manager.SetJobStatus(&generator.progress);
    Run run(manager, options);
    // A progress function may ask for them.
    generator.lastSeed = run.Options().seed.value();
    generator.lastStamp = run.Options().stamp.value();
    RunResult result = run.Generate();
    manager.SetJobStatus(nullptr);
    generator.lastSeed = result.seed;
    return result;
}

// Unlike CreateMod this keeps a file that is there until the new one is whole, and as long as
// errors speak against it.
vaultry_result WriteMod(vaultry_generator& generator, const char* path) {
    std::string fault;
    try {
        SafeFile file(path);
        generator.manager.mod.Write(file.Open(&generator.progress));
        file.Finish();
        const std::size_t errors = generator.configErrors + Logger::GetErrors().size();
        if (generator.options.strict && errors > 0) {
            TellLog(generator);
            Tell(generator,
                 "nothing was written, as strict asks: errors of configuration and run, " +
                     std::to_string(errors));
            return VAULTRY_REFUSED;
        }
        file.Commit();
    } catch (const FileError& e) {
        fault = e.what();
    }
    TellLog(generator);
    if (!fault.empty()) {
        Tell(generator, fault);
        return generator.progress.HasBeenCanceled() ? VAULTRY_CANCELED : VAULTRY_NOT_WRITTEN;
    }
    return VAULTRY_OK;
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
        const RunResult result = Generate(*generator, callers);
        if (result.end == RunEnd::Made) {
            return WriteMod(*generator, TextOf(path));
        }
        TellLog(*generator);
        if (result.end == RunEnd::Unwalkable) {
            Tell(*generator, "none of " + std::to_string(result.tries) + kUnwalkable);
        }
        return result.end == RunEnd::Canceled ? VAULTRY_CANCELED : VAULTRY_REFUSED;
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
