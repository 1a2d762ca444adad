// SPDX-License-Identifier: MIT
// Interiors built from one layout template.
#pragma once

#include <vaultry/gen/GenIntBase.h>

namespace Tarnex {

/// Makes one cell from the template chosen in the run's context. The parameters of random levels
/// play no part; it reports no progress.
class VAULTRY_API GenIntFixed : public GenIntBase {
public:
    explicit GenIntFixed(GenInfo& info);

    void Gen() override;

private:
    void MakeCell();

    DiPtr<LayoutTemplate> plan;
};

} // namespace Tarnex
