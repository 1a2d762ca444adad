// SPDX-License-Identifier: MIT
#include "cli/ConsoleStatus.h"

#include <algorithm>

namespace Tarnex::Cli {

ConsoleStatus::ConsoleStatus(std::ostream* stream,
                             const CancelSignals& cancelSignals,
                             std::uint32_t levelCount)
    : progress(stream), signals(cancelSignals), levels(levelCount) {}

ConsoleStatus::~ConsoleStatus() {
    Show("");
}

bool ConsoleStatus::HasBeenCanceled() const {
    return signals.Requested();
}

void ConsoleStatus::SetText(const std::string& text) {
    step = text;
    ShowStep();
}

void ConsoleStatus::StepIt() {
    JobStatus::StepIt();
    ShowStep();
}

void ConsoleStatus::ShowStep() {
    const std::int64_t level = std::int64_t{GetPos()} + 1;
    const bool counted = levels > 1 && level <= std::int64_t{levels};
    Show(counted ? step + ", level " + std::to_string(level) + " of " + std::to_string(levels)
                 : step);
}

// Blanks cover what a longer line before left, which works on every terminal.
void ConsoleStatus::Show(const std::string& line) {
    if (progress == nullptr || (line.empty() && shown == 0)) {
        return;
    }
    const std::size_t rest = shown - std::min(shown, line.size());
    *progress << '\r' << line << std::string(rest, ' ');
    if (line.empty()) {
        *progress << '\r';
    }
    progress->flush();
    shown = line.size();
}

} // namespace Tarnex::Cli
