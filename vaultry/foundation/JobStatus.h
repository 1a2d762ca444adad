// SPDX-License-Identifier: MIT
// Progress and cancellation, supplied by the front end.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>
#include <utility>

namespace Tarnex {

/// The interface through which a run reports progress and learns that it was cancelled. A front end
/// derives from it and overrides what it needs; the base only counts its position.
///
/// @code
/// class Progress : public Tarnex::JobStatus {
/// public:
///     bool HasBeenCanceled() const override { return !wanted; }
///     std::atomic<bool> wanted = true; // a button of another thread may clear it
/// };
/// @endcode
///
/// All calls come from the thread that runs, while the run waits: they should be quick. What one of
/// them throws while levels are made ends the run, which is refused then; while a configuration is
/// read it counts as a wish to stop.
class VAULTRY_API JobStatus {
public:
    virtual ~JobStatus();

    /// Steps made so far; a run makes one for each level that it has laid out.
    virtual std::int32_t GetPos() const;
    /// The range of positions as (low, high); (0, 0) in the base.
    virtual std::pair<std::int32_t, std::int32_t> GetRange() const;
    /// Polled by the generators, which stop early when it is true; false in the base. Asked every
    /// few thousandths of a second, so a lock in it does no harm. Once it was true for a run it
    /// should stay so until the run has ended.
    virtual bool HasBeenCanceled() const;
    /// Replaces the position; the generators use StepIt alone, a Run sets 0 before each further
    /// try.
    virtual void SetPos(std::int32_t position);
    /// For front ends; the generators never call it. Does nothing in the base.
    virtual void SetRange(std::int32_t low, std::int32_t high);
    /// The step now under way, for display; does nothing in the base. In Windows-1252. A run of
    /// random levels says "Generating Layouts", then "Adding Content"; a fixed interior says
    /// nothing and makes no step.
    virtual void SetText(const std::string& text);
    /// Adds 1 to the position. A level that is given up makes no step, so that the end need not be
    /// at the number of levels.
    virtual void StepIt();

private:
    std::int32_t pos = 0;
};

} // namespace Tarnex
