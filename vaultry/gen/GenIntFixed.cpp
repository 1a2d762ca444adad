// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenIntFixed.h>

#include <vaultry/gen/LayoutOwner.h>

namespace Tarnex {

GenIntFixed::GenIntFixed(GenInfo& info_) : GenIntBase(info_), plan(info_.defTemplate) {}

void GenIntFixed::Gen() {
    containers.clear();
    InitCell();
    LayoutOwner owner;
    Layout& layout = owner.Own(Layout::Create(plan->GetSize()));
    TemplateToLayout(layout, *plan);
    if (info.addPlatforms && tileSet->IsCave()) {
        AddPlatforms(layout);
    }
    AddContents(layout);
    FillCell(layout);
    AddCtrTreasure(containers);
    ShowLevel(layout, nullptr);
}

} // namespace Tarnex
