// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "tools/stage/StageFolder.h"
#include "tools/stage/StagePlan.h"
#include "tools/text/UsageError.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>

#include <numeric>

namespace Tarnex::Cli {

namespace {

std::vector<std::string> ConfigsOf(const StageOptions& options) {
    std::vector<std::string> names = options.configs;
    if (names.empty()) {
        for (const BuiltinConfig& config : BuiltinConfigs()) {
            names.push_back(std::string(kBuiltin) + ':' + std::string(config.name));
        }
    }
    return names;
}

Report::StageSource SourceOf(const std::string& name) {
    Report::StageSource source{name, ConfigSource(name).Record()};
    if (source.record.fatal) {
        throw UsageError("the configuration \"" + name +
                         "\" cannot be read to its end; \"vaultry check\" tells why");
    }
    return source;
}

void Print(const Report::StageFiles& stage, const StageOptions& options, std::ostream& out) {
    out << "wrote \"" << ForTerminal(options.folder)
        << "\": " << Report::Counted(stage.objects, "object") << ", of which "
        << std::accumulate(stage.known.begin(), stage.known.end(), std::size_t{0})
        << " have a shape\n";
    for (std::size_t i = 0; i < stage.known.size(); ++i) {
        out << "  " << Report::kKnownWords.at(i) << ": " << stage.known.at(i) << '\n';
    }
}

} // namespace

ExitStatus RunVerb(const StageOptions& options, const Console& console) {
    const EndingSignals ending;
    LibraryLog log(std::nullopt);
    std::vector<Report::StageSource> sources;
    for (const std::string& name : ConfigsOf(options)) {
        sources.push_back(SourceOf(name));
    }
    const Report::StageFiles stage = Report::FilesOf(Report::PlanStage(sources));
    Report::WriteStage(stage, options.folder, options.master, Report::GameFolders());
    for (const std::string& remark : stage.remarks) {
        console.Say(remark);
    }
    Print(stage, options, console.out);
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
