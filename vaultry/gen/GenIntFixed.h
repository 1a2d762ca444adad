// SPDX-License-Identifier: MIT
// Interiors built from one layout template.
#pragma once

#include <vaultry/gen/GenIntBase.h>

namespace Tarnex {

/// Makes one cell from the template chosen in the run's context. The parameters of random levels
/// play no part; it reports no progress.
class GenIntFixed : public GenIntBase {
public:
    /// `info` must outlive the generator and have a tile set and a template.
    explicit GenIntFixed(GenInfo& info);

    /// Makes the cell. Cancelled, it ends early and says so in the report.
    void Gen() override;

private:
    void MakeCell();

    DiPtr<LayoutTemplate> plan;
};

} // namespace Tarnex
