// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/ConsoleStatus.h"
#include "cli/MapFiles.h"
#include "cli/MergedTables.h"
#include "cli/PresetChoice.h"
#include "cli/SearchReport.h"
#include "cli/VerbRun.h"
#include "tools/maps/LevelMap.h"
#include "tools/maps/PngModule.h"
#include "tools/runs/RunLine.h"
#include "tools/search/Condition.h"
#include "tools/search/HitTable.h"
#include "tools/search/Ranking.h"
#include "tools/search/SeedJudge.h"
#include "tools/search/SeedRange.h"
#include "tools/search/SeedSearch.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/run/Run.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>
#include <thread>

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// As long as most stamps that are drawn, since the size of a plug-in depends on that.
constexpr std::int64_t kUsualStamp = 9'007'199'254'740'991;

constexpr double kThumbnailScale = 1.0; // smaller than a map that stands alone

// What was asked for, understood.
struct Query {
    explicit Query(const SearchOptions& options)
        : where(options.where.empty() ? Search::Condition() : Search::Condition(options.where)),
          order(options.sort.empty() ? Search::Order() : Search::Order(options.sort)) {}

    std::vector<std::size_t> Columns() const {
        std::vector<std::size_t> facts = order.FactsUsed();
        facts.insert(facts.end(), where.FactsUsed().begin(), where.FactsUsed().end());
        return ListedFacts(facts);
    }

    Search::Condition where;
    Search::Order order;
};

void CheckChoice(const SearchOptions& options) {
    if ((options.seeds || options.sample) != options.merge.empty()) {
        throw UsageError("search needs --sample N or --seeds A..B, or --merge with the tables of "
                         "other searches");
    }
    if (options.thumbnails && !options.merge.empty()) {
        throw UsageError("--thumbnails is for a search, not for --merge");
    }
}

// False when the table, if one was asked for, could not be written.
bool WriteTable(std::optional<SafeFile>& table,
                const std::vector<Search::Hit>& hits,
                const Console& console) {
    if (!table) {
        return true;
    }
    try {
        Search::WriteCsv(hits, table->Open());
        table->Finish();
        table->Commit();
        return true;
    } catch (const FileError& e) {
        console.Say(e.what());
        return false;
    }
}

Ending EndingOf(const SearchReport& report, bool written) {
    if (report.outcome.end == Search::SearchEnd::Stopped) {
        return Ending::Canceled;
    }
    const bool whole = report.outcome.end == Search::SearchEnd::Complete && report.lost.empty();
    return whole && written ? Ending::Written : Ending::NotWritten;
}

void Tell(const SearchReport& report, bool saysMore, const Console& console) {
    if (report.options.generate.json) {
        console.out << ToJson(report);
    } else {
        PrintHits(report, console.out);
    }
    if (saysMore) {
        console.Say(Summary(report));
    }
}

ExitStatus Merge(SearchReport& report, const Query& query, const Console& console) {
    const SearchOptions& options = report.options;
    // Watched until the temporary file is gone.
    const CancelSignals signals;
    std::optional<SafeFile> table;
    if (options.generate.out) {
        table.emplace(*options.generate.out);
    }
    MergedTables all = ReadTables(options.merge, query.where, signals);
    for (const std::string& path : all.older) {
        console.Warn(OlderTable(path));
    }
    Search::Ranking ranking(query.order, options.top);
    while (!all.hits.empty() && !signals.Requested()) {
        ranking.Add(std::move(all.hits.extract(all.hits.begin()).value()));
    }
    if (signals.Requested()) {
        console.Say("cancelled, nothing was merged");
        return ExitStatus::Canceled;
    }
    report.found = ranking.Added();
    report.hits = ranking.Take();
    if (report.found == 0 && all.missed > 0) {
        report.outcome.done = all.missed;
        report.parts = all.shortfall.Parts();
    }
    const bool written = WriteTable(table, report.hits, console);
    Tell(report, !options.generate.quiet, console);
    return StatusOf(EndingOf(report, written));
}

std::uint32_t SeedOf(std::uint32_t number, bool scattered) {
    return scattered ? FurtherSeed(0, number) : number;
}

// What every thread that judges begins with.
struct Beginning {
    const GenerateOptions& options;
    const std::string& config;            // as it was read
    const std::vector<Problem>& problems; // of reading it
    const Search::Condition& where;
    bool scattered; // the numbers are not the seeds themselves
};

// What every such thread has of its own: chance and log, which would be the process's, and the
// configuration, whose objects belong to one thread at a time.
class ThreadJudge {
public:
    ThreadJudge(const Beginning& beginning, JobStatus& status) : run(manager, beginning.options) {
        Logger::InitWithoutFile();
        manager.SetJobStatus(&status);
        ProblemList problems;
        manager.InitFromMemory(beginning.config, beginning.options.config.c_str(), status);
        // The same text has the same problems, unless there is no memory for it once more.
        if (problems.Get() != beginning.problems) {
            throw std::bad_alloc();
        }
        const auto make = [this](std::uint32_t seed) { return run.GenerateFrom(seed); };
        judge.emplace(manager, make, beginning.where);
    }

    Search::Verdict Judge(std::uint32_t seed) { return judge->Judge(seed); }

private:
    RunState state;
    UseRunState use{&state};
    GenMgr manager;
    Run run;
    std::optional<Search::SeedJudge> judge;
};

// `beginning` must outlive what is made.
Search::MakeJudge JudgeMaker(const Beginning& beginning) {
    return [&beginning](JobStatus& status) -> Search::Judge {
        const auto judge = std::make_shared<ThreadJudge>(beginning, status);
        return [judge, scattered = beginning.scattered](std::uint32_t number) {
            return judge->Judge(SeedOf(number, scattered));
        };
    };
}

// Shows how far the search is and passes Ctrl-C on.
class Watcher : public Search::SearchListener {
public:
    Watcher(SearchReport& searchReport,
            Search::Ranking& searchRanking,
            const CancelSignals& cancelSignals,
            const Search::Condition& where,
            const Console& searchConsole)
        : report(searchReport), ranking(searchRanking), signals(cancelSignals),
          console(searchConsole), start(Clock::now()),
          line(console.Progress(report.options.generate.quiet), signals, 1), shortfall(where) {}

    void Found(Report::FactValues values) override {
        const auto seed = static_cast<std::uint32_t>(values.front());
        ranking.Add(
            {std::move(values), Report::GenerateCommandLine(report.options.generate, seed)});
    }

    void Missed(const Report::FactValues& values) override {
        if (ranking.Added() == 0) {
            shortfall.Note(values);
        }
    }

    void Lost(std::uint32_t number, const std::string& why) override {
        const std::uint32_t seed = SeedOf(number, report.scattered);
        line.SetText("");
        console.Warn("seed " + std::to_string(seed) + " could not be judged: " + why);
        report.lost.push_back({seed, why});
    }

    bool GoesOn(std::uint64_t done) override {
        if (signals.Requested()) {
            return false;
        }
        constexpr std::chrono::milliseconds kPause(200);
        const auto now = Clock::now();
        if (now - shown >= kPause) {
            shown = now;
            line.SetText(Progress(done));
        }
        return true;
    }

    const Search::Shortfall& Missing() const { return shortfall; }

    double Seconds() const { return std::chrono::duration<double>(Clock::now() - start).count(); }

private:
    std::string Progress(std::uint64_t done) const {
        const std::uint64_t count = report.range->Count();
        const double seconds = Seconds();
        std::string text = std::to_string(done) + " of " + std::to_string(count) + " seeds, " +
                           std::to_string(ranking.Added()) + " found";
        if (done > 0 && seconds >= 1) {
            const double each = seconds / static_cast<double>(done);
            text +=
                ", " + Duration(std::max(1.0, each * static_cast<double>(count - done))) + " left";
        }
        return text;
    }

    SearchReport& report;
    Search::Ranking& ranking;
    const CancelSignals& signals;
    const Console& console;
    Clock::time_point start;
    Clock::time_point shown;
    ConsoleStatus line;
    Search::Shortfall shortfall; // counted while nothing is found
};

// The formats that can be drawn: PNG needs a module that may not be installed.
std::vector<const char*> PictureEnds() {
    try {
        Report::RequirePngModule();
        return {".svg", ".png"};
    } catch (const Report::MapError&) {
        return {".svg"};
    }
}

// Draws one dungeon in every format.
void DrawSeed(VerbRun& search, const GenerateOptions& options, const std::string& path) {
    const auto maps = std::make_shared<Report::MapCollector>();
    search.manager.SetLevelObserver(maps.get());
    const RunResult result = Run(search.manager, options).GenerateFrom(options.seed.value());
    search.manager.SetLevelObserver(nullptr);
    for (const char* end : PictureEnds()) {
        MapFileOptions file;
        file.map = path + end;
        file.scale = kThumbnailScale;
        MapFiles files(file);
        files.Write(maps, CaptionOf(options, result.levels));
        files.Commit();
    }
}

// Draws the hits, as long as nobody wants to stop; false when a map could not be written.
bool DrawHits(VerbRun& search, const SearchReport& report, const Console& console) {
    GenerateOptions options = search.report.options;
    for (const Search::Hit& hit : report.hits) {
        if (search.Signals().Requested()) {
            return true;
        }
        options.seed = static_cast<std::uint32_t>(hit.values.front());
        const std::string name = "seed-" + std::to_string(*options.seed);
        try {
            DrawSeed(search, options, report.options.thumbnails.value() + '/' + name);
        } catch (const std::runtime_error& e) {
            if (search.Signals().Requested()) {
                return true;
            }
            console.Say("the map of " + name + ": " + e.what());
            return false;
        }
    }
    return true;
}

void MakeFolder(const std::optional<std::string>& folder) {
    if (!folder) {
        return;
    }
    std::error_code fault;
    fs::create_directories(PathFromUtf8(*folder), fault);
    if (!fs::is_directory(PathFromUtf8(*folder), fault)) {
        throw UsageError("the folder \"" + *folder + "\" cannot be made: " + fault.message());
    }
}

std::size_t JobsOf(const SearchOptions& options) {
    return options.jobs > 0 ? options.jobs : std::max(1U, std::thread::hardware_concurrency());
}

GenerateOptions WithStamp(GenerateOptions options) {
    options.stamp = options.stamp.value_or(kUsualStamp);
    return options;
}

// Lines name what was found out with the configuration, but no stamp that was not given.
void TakeNames(const RunOptions& used, RunOptions& options) {
    const std::optional<std::int64_t> stamp = options.stamp;
    options = used;
    options.stamp = stamp;
}

void Judge(VerbRun& run,
           const std::string& config,
           const Query& query,
           SearchReport& report,
           const Console& console) {
    Search::Ranking ranking(query.order, report.options.top);
    Watcher watcher(report, ranking, run.Signals(), query.where, console);
    const Beginning beginning{
        run.report.options, config, run.Problems(), query.where, report.scattered};
    report.outcome =
        Search::SearchSeeds(*report.range, JobsOf(report.options), JudgeMaker(beginning), watcher);
    report.seconds = watcher.Seconds();
    std::ranges::sort(report.lost, {}, &LostSeed::seed);
    report.found = ranking.Added();
    report.hits = ranking.Take();
    if (report.found == 0 && report.outcome.done > report.lost.size()) {
        report.parts = watcher.Missing().Parts();
    }
}

ExitStatus SearchRange(SearchReport& report, const Query& query, const Console& console) {
    const SearchOptions& options = report.options;
    report.scattered = options.sample.has_value();
    report.range = report.scattered ? Search::ParseSample(*options.sample)
                                    : Search::ParseSeedRange(*options.seeds);
    static_cast<GenerateOptions&>(report.options.generate) = WithPreset(options.generate);
    report.outcome = {Search::SearchEnd::Stopped, 0, report.range->first};
    VerbRun run(WithStamp(options.generate), console);
    std::string config;
    const bool configured = run.Configure(&config);
    run.Show();
    TakeNames(run.report.options, report.options.generate);
    report.errors = run.report.errors;
    MakeFolder(options.thumbnails);
    // A search that never began has found nothing that an earlier table should give way to.
    bool written = true;
    if (configured) {
        Judge(run, config, query, report, console);
        written = WriteTable(run.Output(), report.hits, console);
    }
    const bool failed = StatusOf(EndingOf(report, written)) != ExitStatus::Success;
    Tell(report, failed || !options.generate.quiet, console);
    if (options.thumbnails) {
        written = DrawHits(run, report, console) && written;
    }
    return StatusOf(EndingOf(report, written));
}

} // namespace

ExitStatus RunVerb(const SearchOptions& options, const Console& console) {
    CheckChoice(options);
    const Query query(options);
    SearchReport report;
    report.options = options;
    report.columns = query.Columns();
    return options.merge.empty() ? SearchRange(report, query, console)
                                 : Merge(report, query, console);
}

} // namespace Tarnex::Cli
