// SPDX-License-Identifier: MIT
#include "tests/tools/plugins/SamplePlugin.h"

#include <sstream>

namespace Tarnex::Test {

namespace {

constexpr float kQuarterTurn = 1.5707964F; // [radians]

Ref Door(const char* id, float x, const char* cell, float arrivalX) {
    Ref door = PlacedAt(id, x, 0.0F, 0.0F, 1);
    door.Teleport(PlacedAt(cell, arrivalX, -256.0F, 0.0F, 3));
    return door;
}

} // namespace

std::string BytesOf(Mod& mod) {
    std::ostringstream stream(std::ios::binary);
    mod.Write(stream);
    return stream.str();
}

PluginFile ReadBack(Mod& mod) {
    return ReadPlugin(BytesOf(mod));
}

Ref PlacedAt(const char* id, float x, float y, float z, int quarters) {
    Ref ref(id);
    ref.position = Di3Point(x, y, z);
    ref.rotation = Di3Point(0.0F, 0.0F, kQuarterTurn * static_cast<float>(quarters));
    return ref;
}

void FillSample(Mod& mod) {
    const DiPtr<Container> chest = mod.CreateContainer();
    chest->SetId("Ctr5_1");
    chest->SetModelName("o\\chest.nif");
    chest->SetFriendlyName("Chest");
    chest->SetWeight(40.5F);
    chest->Add("gold_001", 25);
    chest->Add("cup", 2);
    const DiPtr<Cell> crypt = mod.CreateCell("Crypt");
    crypt->AddRef(PlacedAt("NorthMarker", 0.0F, -150.0F, 0.0F));
    crypt->AddRef(Door("in_door_01", 316.25F, "Caf\xE9", 512.0F));
    crypt->AddRef(PlacedAt("in_doorjamb", 316.25F, 0.0F, -32.0F));
    crypt->AddRef(PlacedAt("Ctr5_1", -80.0F, -256.0F, -96.0F, 2));
    Ref rug = PlacedAt("rug", 64.0F, -64.0F, -128.0F);
    rug.scale = 0.75F;
    crypt->AddRef(rug);
    mod.CreateCell("Caf\xE9")->AddRef(Door("in_door_01", 512.0F, "Crypt", 256.0F));
}

} // namespace Tarnex::Test
