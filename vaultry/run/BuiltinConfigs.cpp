// SPDX-License-Identifier: MIT
#include <vaultry/run/BuiltinConfigs.h>

#include <vaultry/gen/GenMgr.h>

namespace Tarnex {

void LoadBuiltin(GenMgr& manager, const BuiltinConfig& config, const char* name) {
    manager.InitFromMemory(config.text, name);
    if (config.name != "caves" && config.name != "grottoes") {
        return;
    }
    if (!manager.GetCaveTileSets().empty()) {
        manager.SetDefaultTileSet(manager.GetCaveTileSets().front()->GetName().c_str(), true);
    }
    if (!manager.GetCaveLayouts().empty()) {
        manager.SetDefaultTemplate(manager.GetCaveLayouts().front()->GetName().c_str(), true);
    }
}

} // namespace Tarnex
