// SPDX-License-Identifier: MIT
// What stands behind the handle of the C interface.
#pragma once

#include <vaultry/foundation/RunState.h>
#include <vaultry/run/Run.h>
#include <vaultry/vaultry.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex {

/// Hands the progress of a run to a C function.
class ProgressCall : public JobStatus {
public:
    /// A null function is never called.
    void SetFunction(vaultry_progress newFunction, void* newContext);
    /// Before each run of so many steps: what was asked of the last one no longer counts. The
    /// function is called in the state of whoever called for the run (null: the process's), so that
    /// nothing that it does with the library changes the run.
    void Restart(std::uint32_t newSteps, RunState* newCallers);

    bool HasBeenCanceled() const override;
    void SetPos(std::int32_t position) override;
    void SetText(const std::string& newText) override;
    void StepIt() override { SetPos(GetPos() + 1); }

private:
    void Ask() const;

    vaultry_progress function = nullptr;
    void* context = nullptr;
    std::string text; // UTF-8
    RunState* callers = nullptr;
    std::int32_t steps = 0;
    mutable bool canceled = false;
};

} // namespace Tarnex

/// A generator with what the C interface adds to it. All its text is UTF-8.
struct vaultry_generator {
    std::atomic<bool> busy = false; ///< a call is under way; all else is that call's
    Tarnex::GenMgr manager;
    Tarnex::ProgressCall progress;
    Tarnex::RunOptions options;
    std::size_t configErrors = 0; ///< met while the configuration was read
    std::uint32_t lastSeed = 0;
    std::int64_t lastStamp = 0;
    std::string json;
    std::vector<std::string> errors;
};
