// SPDX-License-Identifier: MIT
// What the identifiers of a plug-in stand for, as far as a configuration tells.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>
#include <vaultry/output/PluginFile.h>
#include <vaultry/output/Ref.h>

#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Tarnex::Report {

/// The tiles of one tile set by identifier, which is compared without regard to case. One model may
/// be several tiles, told apart by how they are turned.
class TilePieces {
public:
    explicit TilePieces(const DiPtr<TileSet>& set);

    const TileSet& Set() const { return *set; }
    /// The tiles that have the reference's identifier and rotation, in the order of their kinds.
    std::vector<DiPtr<Tile>> Find(const PluginRef& ref) const;

private:
    DiPtr<TileSet> set;
    std::unordered_map<std::string, std::vector<DiPtr<Tile>>> tiles; // by upper-cased identifier
};

/// Everything that a configuration can place.
class PieceIndex {
public:
    explicit PieceIndex(const ConfigMgr& config);

    const std::vector<TilePieces>& TileSets() const { return sets; }
    /// A platform piece or a kind of content, or nothing when the configuration does not know it.
    std::optional<RefSort> SortOf(std::string_view id) const;
    /// The content of that identifier, or the container of that model; null for neither.
    const ContentTemplate* ContentOf(std::string_view idOrModel) const;
    /// The configuration's first creature, or null.
    const ContentTemplate* FirstCreature() const { return firstCreature.get(); }

private:
    void AddPlatforms(const ConfigMgr& config);

    std::vector<TilePieces> sets;
    std::unordered_map<std::string, RefSort> sorts; // by upper-cased identifier
    // By upper-cased identifier, or model of a container.
    std::unordered_map<std::string, DiPtr<ContentTemplate>> contents;
    DiPtr<ContentTemplate> firstCreature;
};

} // namespace Tarnex::Report
