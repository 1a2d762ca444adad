// SPDX-License-Identifier: MIT
// The content catalogue: one list per kind of content.
#pragma once

#include <vaultry/catalogue/ContentItem.h>
#include <vaultry/catalogue/ContentTemplate.h>
#include <vaultry/foundation/DiPtr.h>

#include <array>
#include <string>
#include <vector>

namespace Tarnex {

/// Content of one kind, in order of addition.
using ContentList = std::vector<DiPtr<ContentTemplate>>;

/// Files the content of a configuration in fourteen lists, each in order of addition.
class VAULTRY_API ContentMgr : public DiRcObject {
public:
    /// Files a template by its kind, a treasure by its subtype. A treasure of another subtype is
    /// dropped silently; a template of another kind is dropped with an error under "Content".
    void Add(DiPtr<ContentTemplate>& content);

    /// The list of a kind or treasure subtype. An unknown word is an error under "Internal" and
    /// gives the furniture list, so that callers always hold a valid list.
    const ContentList& GetList(const char* kind) const;

    /// A new item whose fields are those of the template.
    static DiPtr<ContentItem> CvtToItem(const ContentTemplate& content);

    /// The first template of that unique name, without regard to case, or null.
    static DiPtr<ContentTemplate> FindWithUniqueName(const std::string& name,
                                                     const ContentList& list);

    /// One of the fourteen lists, in order of addition, held by the catalogue.
    /// @{

    const ContentList& GetContainers() const { return lists[Containers]; }
    const ContentList& GetCreatures() const { return lists[Creatures]; }
    const ContentList& GetFurniture() const { return lists[Furniture]; }
    const ContentList& GetRugs() const { return lists[Rugs]; }
    const ContentList& GetTapestries() const { return lists[Tapestries]; }
    const ContentList& GetArmor() const { return lists[Armor]; }
    const ContentList& GetBooks() const { return lists[Books]; }
    const ContentList& GetClothes() const { return lists[Clothes]; }
    const ContentList& GetGems() const { return lists[Gems]; }
    const ContentList& GetGold() const { return lists[Gold]; }
    const ContentList& GetIngredients() const { return lists[Ingredients]; }
    const ContentList& GetMisc() const { return lists[Misc]; }
    const ContentList& GetTools() const { return lists[Tools]; }
    const ContentList& GetWeapons() const { return lists[Weapons]; }

    /// @}

private:
    enum ListId : std::size_t {
        Containers,
        Creatures,
        Furniture,
        Rugs,
        Tapestries,
        Armor,
        Books,
        Clothes,
        Gems,
        Gold,
        Ingredients,
        Misc,
        Tools,
        Weapons,
        kLists,
    };

    struct ListRow;
    static const std::array<ListRow, kLists> kRows;

    std::array<ContentList, kLists> lists;
};

} // namespace Tarnex
