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
///
/// The one of a configuration is GenMgr's `config.contentMgr`. A front end that shows what a theme
/// can place walks the list of each item's type:
///
/// @code
/// for (const DiPtr<Tarnex::ThemeItem>& item : theme->items) {
///     for (const auto& content : manager.config.contentMgr->GetList(item->type.c_str())) {
///         std::cout << content->uniqueName << '\n';
///     }
/// }
/// @endcode
class VAULTRY_API ContentMgr : public DiRcObject {
public:
    /// Files a template by its kind, a treasure by its subtype. A treasure of another subtype is
    /// dropped silently; a template of another kind is dropped with an error under "Content".
    /// `content` is not null. The handle is shared; a template that is added twice stands there
    /// twice, and is drawn twice as often.
    void Add(DiPtr<ContentTemplate>& content);

    /// The list of a kind or treasure subtype. An unknown word is an error under "Internal" and
    /// gives the furniture list, so that callers always hold a valid list. `kind` is not null and
    /// compared without regard to case. "Clothing" is a word, for instance, "Clothes" none.
    const ContentList& GetList(const char* kind) const;

    /// A new item whose fields are those of the template. The template can go, and the item be
    /// changed, without the other noticing.
    static DiPtr<ContentItem> CvtToItem(const ContentTemplate& content);

    /// The first template of that unique name, without regard to case, or null. Goes through the
    /// list from its front; a second one of the name is never found.
    static DiPtr<ContentTemplate> FindWithUniqueName(const std::string& name,
                                                     const ContentList& list);

    /// One of the fourteen lists, in order of addition, held by the catalogue.
    /// @{

    /// What holds treasure; each one placed becomes a record of its own.
    const ContentList& GetContainers() const { return lists[Containers]; }
    /// Who walks the level. Of the subtypes "Bird" and "Fish" none is placed: there is no sky and
    /// no water.
    const ContentList& GetCreatures() const { return lists[Creatures]; }
    /// What stands along walls and, but for caves, in corners.
    const ContentList& GetFurniture() const { return lists[Furniture]; }
    /// What lies in the middle of rooms; other things may stand on it.
    const ContentList& GetRugs() const { return lists[Rugs]; }
    /// What hangs on walls; it takes its cell as furniture does.
    const ContentList& GetTapestries() const { return lists[Tapestries]; }
    /// Treasure, from the elements "Armor".
    const ContentList& GetArmor() const { return lists[Armor]; }
    /// Treasure of the subtype "Book".
    const ContentList& GetBooks() const { return lists[Books]; }
    /// Treasure, from the elements "Clothing".
    const ContentList& GetClothes() const { return lists[Clothes]; }
    /// Treasure of the subtype "Gem".
    const ContentList& GetGems() const { return lists[Gems]; }
    /// Treasure of the subtype "Gold".
    const ContentList& GetGold() const { return lists[Gold]; }
    /// Treasure of the subtype "Ingredient".
    const ContentList& GetIngredients() const { return lists[Ingredients]; }
    /// Treasure of the subtype "Misc".
    const ContentList& GetMisc() const { return lists[Misc]; }
    /// Treasure of the subtype "Tool".
    const ContentList& GetTools() const { return lists[Tools]; }
    /// Treasure, from the elements "Weapon".
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
