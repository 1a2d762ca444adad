// SPDX-License-Identifier: MIT
// Ctrl-C as a request instead of an end.
#pragma once

#include <vaultry/foundation/JobStatus.h>

#include <array>
#include <cstddef>

namespace Tarnex::Cli {

/// While one lives, SIGINT, SIGTERM and a closed terminal's SIGHUP are noted instead of ending the
/// process; a second one of a kind ends it after all. A signal that the process was started to
/// ignore stays ignored. Only one may live at a time.
class CancelSignals : public JobStatus {
public:
    CancelSignals();
    ~CancelSignals() override;
    CancelSignals(const CancelSignals&) = delete;
    CancelSignals& operator=(const CancelSignals&) = delete;

    /// Whether a signal arrived since the object was made.
    bool Requested() const;
    bool HasBeenCanceled() const override { return Requested(); }

private:
    using Handler = void (*)(int);

    static constexpr std::size_t kSignals = 3;

    std::array<Handler, kSignals> old{};
};

} // namespace Tarnex::Cli
