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

protected:
    /// Makes the cell.
    void Make() override;

private:
    DiPtr<LayoutTemplate> plan;
};

} // namespace Tarnex
