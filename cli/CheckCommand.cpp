// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "tools/check/ConfigCheck.h"
#include "tools/text/UsageError.h"

#include <algorithm>
#include <iostream>

namespace Tarnex::Cli {

namespace {

constexpr const char* kStandardInput = "-";
constexpr std::size_t kMostInput = std::size_t{64} << 20; // far beyond any configuration [bytes]

// A stream need not end.
std::string ReadInput() {
    std::string text(kMostInput + 1, '\0');
    std::cin.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(std::cin.gcount()));
    if (text.size() > kMostInput) {
        throw UsageError("standard input is larger than 64 MiB; name a file instead");
    }
    return text;
}

ConfigRecord RecordOf(const std::string& name) {
    if (name != kStandardInput) {
        return ConfigSource(name).Record();
    }
    return RecordConfigText(ReadInput(), kStandardInput);
}

ExitStatus StatusOf(const Report::ConfigCheck& check) {
    return !check.usable              ? ExitStatus::Usage
           : Report::HasWeight(check) ? ExitStatus::Failure
                                      : ExitStatus::Success;
}

} // namespace

ExitStatus RunVerb(const CheckOptions& options, const Console& console) {
    if (std::ranges::count(options.configs, kStandardInput) > 1) {
        throw UsageError("standard input can be read only once: \"-\" is given twice");
    }
    const EndingSignals ending;
    LibraryLog log(std::nullopt);
    const bool several = options.configs.size() > 1;
    std::vector<Report::ConfigCheck> checks;
    ExitStatus worst = ExitStatus::Success;
    for (const std::string& name : options.configs) {
        try {
            checks.push_back(Report::CheckConfig(name, RecordOf(name)));
            worst = std::max(worst, StatusOf(checks.back()));
        } catch (const UsageError& e) {
            console.Say(e.what());
            worst = ExitStatus::Usage;
            continue;
        }
        if (!options.json) {
            Report::PrintCheck(checks.back(), console.out, several);
        }
    }
    if (options.json && !checks.empty()) {
        console.out << (several ? Report::ToJson(checks) : Report::ToJson(checks.front()));
    }
    return worst;
}

} // namespace Tarnex::Cli
