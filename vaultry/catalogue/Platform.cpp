// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Platform.h>

#include <vaultry/catalogue/Mirroring.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Text.h>

#include <array>
#include <utility>

namespace Tarnex {

namespace {

constexpr std::array<std::pair<std::string_view, std::int32_t>, 3> kStairTurns = {{
    {Tile_sStairsUp, 180},
    {Tile_eStairsUp, 90},
    {Tile_wStairsUp, 270},
}};

} // namespace

DiPtr<PlatformTile> Platform::Get(std::string_view kindName) const {
    const auto found = pieces.find(ToUpper(kindName));
    return found == pieces.end() ? nullptr : found->second;
}

DiPtr<PlatformTile> Platform::GetCopyOf(std::string_view kindName) const {
    const DiPtr<PlatformTile> piece = Get(kindName);
    return piece ? MakeDi<PlatformTile>(*piece) : nullptr;
}

void Platform::Set(const PlatformTile& piece) {
    DiPtr<PlatformTile>& slot = pieces[ToUpper(piece.kindName)];
    if (slot) {
        ReportProblem({ProblemKind::PieceTwice, {piece.kindName, name}});
        *slot = piece;
        return;
    }
    slot = MakeDi<PlatformTile>(piece);
    if (EqualsNoCase(piece.kindName, Tile_nStairsUp)) {
        MirrorNStairs(piece);
    }
}

void Platform::MirrorNStairs(const PlatformTile& source) {
    for (const auto& [kindName, turn] : kStairTurns) {
        PlatformTile stairs = source;
        stairs.kindName = kindName;
        stairs.zRotate = TurnAngle(source.zRotate, turn);
        RotateOffset(stairs.offset, turn);
        Set(stairs);
    }
}

} // namespace Tarnex
