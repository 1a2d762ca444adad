// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenIntFixed.h>

#include <vaultry/gen/LayoutOwner.h>

namespace Tarnex {

GenIntFixed::GenIntFixed(GenInfo& info_) : GenIntBase(info_), plan(info_.defTemplate) {}

void GenIntFixed::Make() {
    // A generator may be run again.
    containers.clear();
    InitCell();
    LayoutOwner owner;
    Layout& layout = owner.Own(MakeLayout(plan->GetSize()));
    TemplateToLayout(layout, *plan);
    // Before the contents, which are lifted onto them. Rooms have even floors.
    if (info.addPlatforms && tileSet->IsCave()) {
        AddPlatforms(layout);
    }
    SeedContents();
    AddContents(layout);
    AddWayOut(layout, nullptr);
    // Containers come into being here, to be filled by the next step.
    FillCell(layout);
    AddCtrTreasure(containers);
    ShowLevel(layout, nullptr);
}

} // namespace Tarnex
