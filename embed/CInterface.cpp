// SPDX-License-Identifier: MIT
// A generator from C: texts in and out, and no exception past it.
#include "embed/Generator.h"
#include "tools/runs/Description.h"
#include "tools/runs/Presets.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/run/BuiltinConfigs.h>
#include <vaultry/run/SafeFile.h>

#include <sstream>

namespace {

using namespace Tarnex;

constexpr const char* kBusy =
    "the generator is at work: until that call has ended it can be used for nothing else";

constexpr const char* kUnwalkable =
    " seeds made every room of every level reachable; try another tileset, spacing or size";

constexpr const char* kUnclosed =
    " seeds made a dungeon as wanted without an opening onto nothing; try close-openings, or "
    "another tileset, spacing or size";

void TellErrors(vaultry_generator& generator, const std::vector<Problem>& problems) {
    for (const std::string& line : ErrorLines(problems)) {
        Tell(generator, line);
    }
}

vaultry_result StateOfConfig(vaultry_generator& generator) {
    if (generator.call.HasBeenCanceled()) {
        return VAULTRY_CANCELED;
    }
    GenMgr& manager = generator.manager;
    return manager.GetRoomTileSets().empty() && manager.GetCaveTileSets().empty() ? VAULTRY_REFUSED
                                                                                  : VAULTRY_OK;
}

template <typename Read>
vaultry_result TakeConfig(vaultry_generator& generator, const char* name, const Read& read) {
    generator.errors.clear();
    generator.run.reset();
    generator.config = TextOf(name);
    ForgetNames(generator);
    ProblemList problems;
    read(generator.manager, generator.call);
    generator.problems = problems.Get();
    TellErrors(generator, generator.problems);
    generator.configErrors = generator.errors.size();
    return StateOfConfig(generator);
}

template <typename Read>
vaultry_result ReadConfig(vaultry_generator* generator, const char* name, const Read& read) {
    return Enter(*generator, [=, &read](RunState*) { return TakeConfig(*generator, name, read); });
}

// Options that shape levels begin anew, or those of the preset before would stay.
vaultry_result UsePreset(vaultry_generator& generator, const Report::Preset& preset) {
    Report::RunRequest request;
    static_cast<RunOptions&>(request) = generator.options;
    for (const OptionRow& row : RunOptionRows()) {
        if ((row.uses & kShapesLevels) != 0) {
            ResetOption(request, row);
        }
    }
    Report::Apply(preset, request);
    const BuiltinConfig* const config = FindBuiltinConfig(request.config);
    const vaultry_result result =
        TakeConfig(generator, request.config.c_str(), [&](GenMgr& manager, const JobStatus&) {
            LoadBuiltin(manager, *config, request.config.c_str());
        });
    generator.options = request;
    return result;
}

// The cell is named after the file, whose path is empty where none is written.
RunEnd Generate(vaultry_generator& generator, RunState* callers, const std::string& path) {
    generator.errors.clear();
    generator.run.reset();
    GenMgr& manager = generator.manager;
    RunOptions options = generator.options;
    options.cell = options.cell.value_or(CellNameOf(path));
    NameDefaults(options, manager);
    generator.progress.Restart(options.fixed ? 1 : options.numLevels, callers);
    manager.SetJobStatus(&generator.progress);
    const auto maps = std::make_shared<Report::MapCollector>();
    manager.SetLevelObserver(maps.get());
    Run run(manager, options);
    // A progress function may ask for them.
    generator.lastSeed = run.Options().seed.value();
    generator.lastStamp = run.Options().stamp.value();
    RunResult result = run.Generate();
    manager.SetLevelObserver(nullptr);
    manager.SetJobStatus(nullptr);
    generator.lastSeed = result.seed;
    const RunEnd end = result.end;
    if (end == RunEnd::Made) {
        AddArrivals(maps->Maps(), result.arrivals);
        AddTreasure(maps->Maps(), manager.mod);
    }
    generator.run = {std::move(result), options, maps, {}};
    if (end == RunEnd::Made && options.describe) {
        Report::Description description =
            Report::DescriptionOf(RequestOf(generator), generator.lastSeed);
        manager.mod.SetDescription(description.header.c_str());
        generator.run->beside = std::move(description.beside);
    }
    return end;
}

vaultry_result TellEnd(vaultry_generator& generator, RunEnd end) {
    TellErrors(generator, generator.run->result.problems);
    if (end == RunEnd::Unwalkable || end == RunEnd::Unclosed) {
        Tell(generator,
             "none of " + std::to_string(generator.run->result.tries) +
                 (end == RunEnd::Unwalkable ? kUnwalkable : kUnclosed));
    }
    return end == RunEnd::Made       ? VAULTRY_OK
           : end == RunEnd::Canceled ? VAULTRY_CANCELED
                                     : VAULTRY_REFUSED;
}

// Puts a finished plug-in into its place, and then, so that none that is still there gets the line
// of another, the file beside it.
void Commit(vaultry_generator& generator, const char* path, SafeFile& plugin) {
    const std::string& beside = generator.run->beside;
    if (beside.empty()) {
        plugin.Commit();
        return;
    }
    Report::RequireFreeBeside(path);
    SafeFile line(Report::PathBeside(path));
    line.Open(&generator.progress) << beside;
    line.Finish();
    plugin.Commit();
    line.Commit();
}

// Unlike CreateMod this keeps a file that is there until the new one is whole, and as long as
// errors speak against it: some are met only while it is written.
vaultry_result WriteMod(vaultry_generator& generator, const char* path) {
    ProblemList problems(generator.run->result.problems);
    std::string fault;
    try {
        SafeFile file(path);
        generator.manager.mod.Write(file.Open(&generator.progress));
        file.Finish();
        const std::size_t errors = generator.configErrors + problems.Get().size();
        if (generator.options.strict && errors > 0) {
            TellErrors(generator, problems.Get());
            Tell(generator,
                 "nothing was written, as strict asks: errors of configuration and run, " +
                     std::to_string(errors));
            return VAULTRY_REFUSED;
        }
        Commit(generator, path, file);
    } catch (const FileError& e) {
        fault = e.what();
    }
    TellErrors(generator, problems.Get());
    if (!fault.empty()) {
        Tell(generator, fault);
        return generator.call.HasBeenCanceled() ? VAULTRY_CANCELED : VAULTRY_NOT_WRITTEN;
    }
    return VAULTRY_OK;
}

} // namespace

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
    if (generator != nullptr && generator->call.IsBusy()) {
        return VAULTRY_BUSY;
    }
    delete generator;
    return VAULTRY_OK;
}

vaultry_result vaultry_init(vaultry_generator* generator, const char* path) {
    return ReadConfig(generator, path, [path](GenMgr& manager, const JobStatus& status) {
        manager.Init(TextOf(path), status);
    });
}

vaultry_result vaultry_init_from_memory(vaultry_generator* generator,
                                        const char* text,
                                        size_t length,
                                        const char* name) {
    return ReadConfig(generator, name, [=](GenMgr& manager, const JobStatus& status) {
        const std::string_view document(TextOf(text), text == nullptr ? 0 : length);
        manager.InitFromMemory(document, TextOf(name), status);
    });
}

vaultry_result vaultry_use_preset(vaultry_generator* generator, const char* name) {
    return Enter(*generator, [=](RunState*) {
        try {
            return UsePreset(*generator,
                             Report::FindPreset(Report::BuiltinPresetList(), TextOf(name)));
        } catch (const UsageError& e) {
            generator->errors.clear();
            Tell(*generator, e.what());
            return VAULTRY_BAD_ARGUMENT;
        }
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
    return index < RunOptionRows().size() ? RunOptionRows()[index].name : nullptr;
}

vaultry_result
vaultry_set_progress(vaultry_generator* generator, vaultry_progress progress, void* context) {
    return Enter(*generator, [=](RunState*) {
        generator->progress.SetFunction(progress, context);
        return VAULTRY_OK;
    });
}

vaultry_result vaultry_run(vaultry_generator* generator) {
    return Enter(*generator, [=](RunState* callers) {
        return TellEnd(*generator, Generate(*generator, callers, ""));
    });
}

vaultry_result vaultry_generate(vaultry_generator* generator, const char* path) {
    return Enter(*generator, [=](RunState* callers) {
        const RunEnd end = Generate(*generator, callers, TextOf(path));
        return end == RunEnd::Made ? WriteMod(*generator, TextOf(path)) : TellEnd(*generator, end);
    });
}

void vaultry_cancel(vaultry_generator* generator) {
    generator->call.Cancel();
}

const void* vaultry_plugin(vaultry_generator* generator, size_t* length) {
    *length = 0;
    const vaultry_result result = Enter(*generator, [=](RunState*) {
        if (!generator->run || generator->run->result.end != RunEnd::Made) {
            generator->errors.clear();
            Tell(*generator, "there is no plug-in: the last run made none");
            return VAULTRY_REFUSED;
        }
        std::ostringstream bytes;
        generator->manager.mod.Write(bytes);
        generator->text = std::move(bytes).str();
        *length = generator->text.size();
        return VAULTRY_OK;
    });
    return result == VAULTRY_OK ? generator->text.data() : nullptr;
}

uint32_t vaultry_last_seed(const vaultry_generator* generator) {
    return generator->lastSeed;
}

int64_t vaultry_last_stamp(const vaultry_generator* generator) {
    return generator->lastStamp;
}

size_t vaultry_error_count(const vaultry_generator* generator) {
    return generator->call.IsBusy() ? 1 : generator->errors.size();
}

const char* vaultry_error(const vaultry_generator* generator, size_t index) {
    if (generator->call.IsBusy()) {
        return index == 0 ? kBusy : nullptr;
    }
    return index < generator->errors.size() ? generator->errors[index].c_str() : nullptr;
}
