// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ContentMgr.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Text.h>

#include <string_view>

namespace Tarnex {

struct ContentMgr::ListRow {
    std::string_view word;
    bool isTreasure; // the word is a subtype of treasure, not a kind of its own
};

// In the order of the lists.
const std::array<ContentMgr::ListRow, ContentMgr::kLists> ContentMgr::kRows = {{
    {Content_Container, false},
    {Content_Creature, false},
    {Content_Furniture, false},
    {Content_Rug, false},
    {Content_Tapestry, false},
    {Content_Armor, false},
    {Treasure_Book, true},
    {Content_Clothing, false},
    {Treasure_Gem, true},
    {Treasure_Gold, true},
    {Treasure_Ingredient, true},
    {Treasure_Misc, true},
    {Treasure_Tool, true},
    {Content_Weapon, false},
}};

void ContentMgr::Add(DiPtr<ContentTemplate>& content) {
    const bool isTreasure = content->IsKind(Content_Treasure);
    const std::string& word = isTreasure ? content->subtype : content->contentKind;
    for (std::size_t i = 0; i < kLists; ++i) {
        if (kRows[i].isTreasure == isTreasure && EqualsNoCase(word, kRows[i].word)) {
            lists[i].push_back(content);
            return;
        }
    }
    if (!isTreasure) {
        ReportProblem({ProblemKind::UnknownContentKind, {content->contentKind}});
    }
}

const ContentList& ContentMgr::GetList(const char* kind) const {
    for (std::size_t i = 0; i < kLists; ++i) {
        if (EqualsNoCase(kind, kRows[i].word)) {
            return lists[i];
        }
    }
    ReportProblem({ProblemKind::UnknownContentList, {kind}});
    return lists[Furniture];
}

DiPtr<ContentItem> ContentMgr::CvtToItem(const ContentTemplate& content) {
    auto item = MakeDi<ContentItem>();
    item->CopyFrom(content);
    return item;
}

DiPtr<ContentTemplate> ContentMgr::FindWithUniqueName(const std::string& name,
                                                      const ContentList& list) {
    for (const DiPtr<ContentTemplate>& content : list) {
        if (EqualsNoCase(content->uniqueName, name)) {
            return content;
        }
    }
    return nullptr;
}

} // namespace Tarnex
