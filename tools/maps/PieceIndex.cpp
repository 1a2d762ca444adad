// SPDX-License-Identifier: MIT
#include "tools/maps/PieceIndex.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Text.h>

#include <array>
#include <cmath>

namespace Tarnex::Report {

namespace {

// Both directions of a turn are compared, since turns do not end at 360 degrees.
bool IsTurnedLike(const PluginRef& ref, const Tile& tile) {
    constexpr double kTolerance = 0.02; // about a degree [radians]
    const double difference = double{ref.place.rotation.z} - tile.zRotate * kRadiansPerDegree;
    return std::abs(std::sin(difference / 2.0)) < kTolerance / 2.0 &&
           std::abs(std::sin(ref.place.rotation.x / 2.0)) < kTolerance / 2.0 &&
           std::abs(std::sin(ref.place.rotation.y / 2.0)) < kTolerance / 2.0;
}

} // namespace

TilePieces::TilePieces(const DiPtr<TileSet>& tileSet) : set(tileSet) {
    for (std::size_t i = 0; i < TileKind::kCount; ++i) {
        const DiPtr<Tile>& tile = set->Get(TileKind::At(i));
        if (tile && !tile->id.empty()) {
            tiles[ToUpper(tile->id)].push_back(tile);
        }
    }
}

std::vector<DiPtr<Tile>> TilePieces::Find(const PluginRef& ref) const {
    std::vector<DiPtr<Tile>> found;
    const auto same = tiles.find(ToUpper(ref.id));
    if (same != tiles.end()) {
        for (const DiPtr<Tile>& tile : same->second) {
            if (IsTurnedLike(ref, *tile)) {
                found.push_back(tile);
            }
        }
    }
    return found;
}

PieceIndex::PieceIndex(const ConfigMgr& config) {
    for (const auto* list : {&config.roomTileSets, &config.caveTileSets}) {
        for (const DiPtr<TileSet>& set : *list) {
            sets.emplace_back(set);
        }
    }
    const auto add = [this](const ContentList& list, RefSort sort) {
        for (const DiPtr<ContentTemplate>& content : list) {
            sorts.emplace(ToUpper(content->uniqueName), sort);
            const bool byModel = sort == RefSort::Container;
            contents.emplace(ToUpper(byModel ? content->modelFile : content->uniqueName), content);
        }
    };
    add(config.contentMgr->GetContainers(), RefSort::Container);
    add(config.contentMgr->GetCreatures(), RefSort::Creature);
    add(config.contentMgr->GetFurniture(), RefSort::Furniture);
    add(config.contentMgr->GetRugs(), RefSort::Rug);
    add(config.contentMgr->GetTapestries(), RefSort::Tapestry);
    AddPlatforms(config);
    const ContentList& creatures = config.contentMgr->GetCreatures();
    firstCreature = creatures.empty() ? nullptr : creatures.front();
}

void PieceIndex::AddPlatforms(const ConfigMgr& config) {
    static constexpr std::array<const char*, 6> kKinds = {
        "Floor", "Beam", "StairsUpN", "StairsUpS", "StairsUpE", "StairsUpW"};
    for (const DiPtr<Platform>& platform : config.platformList) {
        for (const char* kind : kKinds) {
            if (const DiPtr<PlatformTile> piece = platform->Get(kind)) {
                sorts.emplace(ToUpper(piece->id), RefSort::Platform);
            }
        }
    }
}

std::optional<RefSort> PieceIndex::SortOf(std::string_view id) const {
    const auto found = sorts.find(ToUpper(id));
    return found == sorts.end() ? std::nullopt : std::optional(found->second);
}

const ContentTemplate* PieceIndex::ContentOf(std::string_view idOrModel) const {
    const auto found = contents.find(ToUpper(idOrModel));
    return found == contents.end() ? nullptr : found->second.get();
}

} // namespace Tarnex::Report
