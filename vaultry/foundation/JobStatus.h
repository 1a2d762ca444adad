// SPDX-License-Identifier: MIT
// Progress and cancellation, supplied by the front end.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>
#include <utility>

namespace Tarnex {

/// The interface through which a run reports progress and learns that it was cancelled. A front
/// end derives from it and overrides what it needs; the base only counts its position.
class VAULTRY_API JobStatus {
public:
    virtual ~JobStatus();

    /// Steps made so far; a run makes one for each level that it has laid out.
    virtual std::int32_t GetPos() const;
    /// The range of positions as (low, high); (0, 0) in the base.
    virtual std::pair<std::int32_t, std::int32_t> GetRange() const;
    /// Polled by the generators, which stop early when it is true; false in the base.
    virtual bool HasBeenCanceled() const;
    /// Replaces the position; the generators use StepIt alone, a Run sets 0 before each further
    /// try.
    virtual void SetPos(std::int32_t position);
    /// For front ends; the generators never call it. Does nothing in the base.
    virtual void SetRange(std::int32_t low, std::int32_t high);
    /// The step now under way, for display; does nothing in the base.
    virtual void SetText(const std::string& text);
    /// Adds 1 to the position.
    virtual void StepIt();

private:
    std::int32_t pos = 0;
};

} // namespace Tarnex
