// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/TileSet.h>

#include <vaultry/catalogue/Mirroring.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Text.h>

namespace Tarnex {

namespace {

const DiPtr<Tile>& NoTile() {
    static const DiPtr<Tile> none;
    return none;
}

} // namespace

bool TileSet::IsCave() const {
    return EqualsNoCase(type, Tile_Cave);
}

const DiPtr<Tile>& TileSet::Get(const TileKindName& kindName) const {
    if (kindName.Kind().IsKnown()) {
        return Get(kindName.Kind());
    }
    const auto found = others.find(ToUpper(kindName.Text()));
    return found == others.end() ? NoTile() : found->second;
}

const DiPtr<Tile>& TileSet::Get(TileKind kind) const {
    return kind.IsKnown() ? known[kind.Index()] : NoTile();
}

DiPtr<Tile>& TileSet::Slot(const TileKindName& kindName) {
    const TileKind kind = kindName.Kind();
    return kind.IsKnown() ? known[kind.Index()] : others[ToUpper(kindName.Text())];
}

void TileSet::Set(const Tile& tile) {
    DiPtr<Tile>& slot = Slot(tile.kindName);
    if (slot) {
        ReportProblem({ProblemKind::TileTwice, {tile.kindName.c_str(), name}});
        *slot = tile;
        return;
    }
    slot = MakeDi<Tile>(tile);
    for (const Tile& derived : MirrorTile(tile)) {
        Set(derived);
    }
}

bool TileSet::AllowCornerDoors() const {
    return Get(Tile_DoorwayNW_W) && Get(Tile_DoorwayNW_N);
}

} // namespace Tarnex
