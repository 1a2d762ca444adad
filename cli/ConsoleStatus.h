// SPDX-License-Identifier: MIT
// Progress for people, and the request to stop.
#pragma once

#include "cli/CancelSignals.h"

#include <vaultry/foundation/JobStatus.h>

#include <cstdint>
#include <ostream>

namespace Tarnex::Cli {

/// Shows the step under way on one line, which is rewritten in place and gone in the end, and
/// passes on that Ctrl-C was pressed.
class ConsoleStatus : public JobStatus {
public:
    /// Shows nothing when `progress` is null. Neither of the two is owned.
    ConsoleStatus(std::ostream* progress, const CancelSignals& signals, std::uint32_t levels);
    ~ConsoleStatus() override;
    ConsoleStatus(const ConsoleStatus&) = delete;
    ConsoleStatus& operator=(const ConsoleStatus&) = delete;

    bool HasBeenCanceled() const override;
    void SetText(const std::string& text) override;
    void StepIt() override;

private:
    void ShowStep();
    void Show(const std::string& line);

    std::ostream* progress;
    const CancelSignals& signals;
    std::uint32_t levels;
    std::string step;
    std::size_t shown = 0; // letters on the line
};

} // namespace Tarnex::Cli
