// SPDX-License-Identifier: MIT
#include "cli/VerbRun.h"

#include "cli/ConsoleStatus.h"
#include "cli/LevelLines.h"
#include "cli/NameCheck.h"
#include "cli/PresetChoice.h"
#include "tools/runs/Description.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/run/Run.h>

#include <bit>

namespace Tarnex::Cli {

namespace {

void CheckText(const GenerateOptions& options) {
    if (options.cell && options.cell->empty()) {
        throw UsageError("--cell: the name of the cell is empty");
    }
    if (options.fixed && (options.ensureWalkable || options.ensureClosed)) {
        throw UsageError(
            std::string(options.ensureWalkable ? "--ensure-walkable" : "--ensure-closed") +
            " is for random levels, not for --fixed");
    }
    CheckMapOptions(options.maps);
    if (options.master && options.master->empty()) {
        throw UsageError("--master: the name of the master file is empty");
    }
}

RunReport ReportOn(const GenerateOptions& options) {
    CheckText(options);
    RunReport report;
    report.options = options;
    report.stampGiven = options.stamp.has_value();
    FixChance(report.options);
    return report;
}

// The library refuses names that it lacks; here the nearest are offered.
void CheckNames(GenMgr& manager, GenerateOptions& options) {
    for (const OptionRow* row : SpellNames(options, manager)) {
        const std::string name = std::get<std::string>(ValueOf(options, *row));
        throw UsageError(std::string("the configuration has no ") + row->choice->what + " \"" +
                         name + "\"; " + OfferNames(name, ToUtf8(row->choice->names(manager))) +
                         AskedByPreset(options, *row));
    }
}

InteriorReport InteriorOf(const Report::LevelMap& map, const LevelChoices& chosen) {
    InteriorReport interior{Tarnex::ToUtf8(chosen.layout->GetName()), map.rooms.size(), {}, 0};
    for (std::size_t i = 0; i < map.rooms.size(); ++i) {
        if (!map.rooms[i].reachable) {
            interior.unreachable.push_back(i + 1);
        }
    }
    for (const Report::MapCell& cell : map.cells) {
        interior.openings += static_cast<unsigned>(std::popcount(cell.loose));
    }
    return interior;
}

// Why a file could not be written; empty when it was.
template <typename Step>
std::string FaultOf(Step step) try {
    step();
    return {};
} catch (const FileError& e) {
    return e.what();
}

} // namespace

VerbRun::Files::Files(const GenerateOptions& options, const ConfigSource& source) {
    std::optional<std::string> besidePath;
    if (options.out) {
        output.emplace(*options.out);
    }
    if (options.out && options.describe) {
        besidePath = Report::PathBeside(*options.out);
        beside.emplace(*besidePath);
    }
    maps.emplace(options.maps);
    const std::optional<std::string> ids =
        options.ids ? std::optional(options.ids->path) : std::nullopt;
    RequireDistinctFiles({source.Path(),
                          ids,
                          options.out,
                          besidePath,
                          options.log,
                          options.maps.map,
                          options.maps.html});
}

VerbRun::VerbRun(const GenerateOptions& options, const Console& runConsole)
    : report(ReportOn(options)), console(runConsole), source(options.config),
      files(std::in_place, options, source), log(options.log) {}

bool VerbRun::Configure(std::string* copy) try {
    source.Load(manager, CancelSignals::Status(), copy);
    if (Signals().Requested()) {
        report.result = Ending::Canceled;
        return false;
    }
    if (!report.options.keepGoing || report.options.strict) {
        source.RequireWhole(manager);
    }
    CheckNames(manager, report.options);
    NameDefaults(report.options, manager);
    Warn(IdleWarnings(report.options));
    Warn(IdWarnings(report.options));
    return true;
} catch (const UsageError&) {
    console.Show(log.Errors());
    throw;
}

void VerbRun::Generate() {
    const GenerateOptions& options = report.options;
    // A fixed interior is judged by its map.
    const bool drawn = options.fixed || !options.out || options.maps.AreWanted();
    ConsoleStatus status(
        console.Progress(options.quiet), Signals(), options.fixed ? 1 : options.numLevels);
    manager.SetJobStatus(&status);
    manager.SetLevelObserver(drawn ? maps.get() : nullptr);
    const RunResult result = Run(manager, options).Generate();
    log.Add(result.problems);
    TakeOver(result, report);
    manager.SetLevelObserver(nullptr);
    manager.SetJobStatus(nullptr);
    if (report.result == Ending::Written) {
        if (drawn) {
            AddArrivals(maps->Maps(), report.arrivals);
        }
        AddTreasure(maps->Maps(), manager.mod);
        if (options.fixed && !maps->Maps().empty()) {
            report.interior = InteriorOf(maps->Maps().front(), result.levels.chosen.front());
        }
        report.result = options.out            ? Ending::Written
                        : maps->Maps().empty() ? Ending::Refused
                                               : Ending::Drawn;
    }
}

void VerbRun::Write() {
    if (StatusOf(report.result) != ExitStatus::Success) {
        return;
    }
    report.fault = FaultOf([this] { Fill(); });
    report.result = Filled();
    if (StatusOf(report.result) == ExitStatus::Success) {
        report.fault = FaultOf([this] { Commit(); });
        report.result = report.fault.empty() ? report.result : Ending::NotWritten;
    }
}

void VerbRun::Fill() {
    files->maps->Write(maps, CaptionOf(report.options, report.levels));
    if (files->output) {
        Describe();
        manager.mod.Write(files->output->Open(&CancelSignals::Status()));
        files->output->Finish();
    }
}

void VerbRun::Describe() {
    if (!files->beside) {
        return;
    }
    const Report::Description description =
        Report::DescriptionOf(report.options, report.options.seed.value());
    manager.mod.SetDescription(description.header.c_str());
    if (description.beside.empty()) {
        files->beside.reset();
        return;
    }
    Report::RequireFreeBeside(*report.options.out);
    files->beside->Open(&CancelSignals::Status()) << description.beside;
    files->beside->Finish();
}

// Writing may have added errors.
Ending VerbRun::Filled() {
    if (Signals().Requested()) {
        return Ending::Canceled;
    }
    if (!report.fault.empty()) {
        return Ending::NotWritten;
    }
    if (files->output) {
        CountContent(manager.mod, report);
    }
    return report.options.strict && !log.Errors().empty() ? Ending::Strict : report.result;
}

void VerbRun::Commit() {
    if (files->output) {
        files->output->Commit();
        report.bytes = files->output->Size();
    }
    // Later than the plug-in, so that none that is still there gets the line of another.
    if (files->beside) {
        files->beside->Commit();
        report.beside = {Report::PathBeside(*report.options.out), files->beside->Size()};
    }
    report.maps = files->maps->Commit();
}

void VerbRun::Show() {
    report.errors = log.Errors();
    console.Show(report.errors);
    Warn(LevelWarnings(report.levels));
    if (report.interior) {
        Warn(InteriorWarnings(*report.interior));
    }
    Warn(ArrivalWarnings(report.arrivals));
}

void VerbRun::Warn(const std::vector<std::string>& warnings) {
    for (const std::string& warning : warnings) {
        report.warnings.push_back(warning);
        console.Warn(warning);
    }
}

ExitStatus VerbRun::End() {
    const GenerateOptions& options = report.options;
    const bool writes = options.out || options.maps.AreWanted();
    ExitStatus status = StatusOf(report.result);
    if (status != ExitStatus::Success || (writes && !options.quiet)) {
        SayWritten(report.maps, console);
        console.Say(Summary(report));
        if (report.beside) {
            console.Say("wrote \"" + report.beside->path + "\": the line that makes it again");
        }
    }
    if (report.result == Ending::Written && !options.quiet) {
        for (const std::string& step : NextSteps(report)) {
            console.Say(step);
        }
    }
    if (const auto fault = log.SayFault(console)) {
        report.warnings.push_back(*fault);
        status = status == ExitStatus::Success ? ExitStatus::Failure : status;
    }
    if (options.json) {
        console.out << ToJson(report);
    }
    return status;
}

} // namespace Tarnex::Cli
