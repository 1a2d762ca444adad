// SPDX-License-Identifier: MIT
// Contents: furnishing a layout from the themes and filling its containers.
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/ContentPlace.h>
#include <vaultry/gen/GenIntBase.h>
#include <vaultry/gen/Limits.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

struct RarityTier {
    std::int32_t upTo; // value of the content
    double accepted;   // share of the picks that are accepted
};

constexpr std::int32_t kCommonValue = 1000; // always accepted, without a draw

// Nothing is too precious for the first barrel; it is only seldom found there.
constexpr std::array<RarityTier, 3> kRarity = {{{5000, 0.1}, {10000, 0.05}, {25000, 0.01}}};
constexpr double kRarest = 0.001;

double AcceptedShare(std::int32_t value) {
    for (const RarityTier& tier : kRarity) {
        if (value <= tier.upTo) {
            return tier.accepted;
        }
    }
    return kRarest;
}

// What a large pile of one kind is worth in all. [gold pieces]
struct WorthTier {
    double below; // of the draw
    std::int64_t worth;
};

constexpr std::array<WorthTier, 8> kWorths = {{
    {0.1, 10},
    {0.2, 25},
    {0.4, 50},
    {0.7, 100},
    {0.9, 250},
    {0.95, 500},
    {0.99, 1000},
    {0.999, 2500},
}};

// Piles below this, and those that are not large, keep the number drawn.
constexpr std::int64_t kPlausibleWorth = 250;

std::int64_t PileWorth(double draw) {
    for (const WorthTier& tier : kWorths) {
        if (draw < tier.below) {
            return tier.worth;
        }
    }
    return kGreatestWorth;
}

// What a turn costs beside its searches, in looks at one thing.
constexpr std::int64_t kStepsPerTurn = 64;
// Moving a pointer costs less than looking at a thing.
constexpr std::size_t kMovesPerStep = 8;

std::int64_t StepsOf(std::size_t count) {
    return static_cast<std::int64_t>(count);
}

// A name is looked for among all candidates.
std::int64_t StepsToSelect(const ThemeItem& item, const ContentList& candidates) {
    return item.uniqueNames.empty() ? 0 : StepsOf(candidates.size());
}

// What an item takes that is placed: it carries all its names, whatever they are shared with.
std::uint64_t MemoryOf(const ContentBase& content) {
    return sizeof(ContentItem) + content.uniqueName.size() + content.friendlyName.size() +
           content.modelFile.size() + content.contentKind.size() + content.subtype.size();
}

void Append(std::vector<GridElmt*>& list, const std::vector<GridElmt*>& more) {
    list.insert(list.end(), more.begin(), more.end());
}

// The element at a random position, taken out of the list.
GridElmt* TakeElement(std::vector<GridElmt*>& elements) {
    const std::int32_t position = RandomInt(static_cast<std::int32_t>(elements.size()));
    const auto taken = elements.begin() + position;
    GridElmt* elmt = *taken;
    elements.erase(taken);
    return elmt;
}

// A turn that falls to chance is skipped when the draw is above the chance.
bool SkipsTurn(std::int64_t turn, const PlacementCounts& counts, const ThemeItem& item) {
    if (turn < counts.minimum) {
        return false;
    }
    // Turns up to the minimum draw nothing.
    const float draw = RandomUnit();
    return draw > item.chance;
}

// Apart, since what makes a problem would slow down every turn.
[[gnu::cold]] void
ReportTurns(const PlacementCounts& counts, const ThemeItem& item, const Theme* theme) {
    ReportProblem({ProblemKind::TooManyPlacements,
                   {theme == nullptr ? "" : theme->GetName(),
                    std::to_string(static_cast<int>(counts.maximum)),
                    item.type,
                    std::to_string(kMaxTurns)}});
}

// True when there is a further turn. That an item still wants one after as many as a cell can take
// in reasonable time is logged with its theme.
bool HasTurn(std::int64_t turn,
             const PlacementCounts& counts,
             const ThemeItem& item,
             const Theme* theme) {
    if (turn < std::min(counts.maximum, kMaxTurns)) {
        return true;
    }
    if (turn < counts.maximum) {
        ReportTurns(counts, item, theme);
    }
    return false;
}

// The first that fits, not one by chance: no draw depends on how full the containers are.
Container* FindCtrWithRoom(const std::vector<DiPtr<Container>>& list, float amount) {
    // Full to the brim is too full here, though the container that was drawn takes as much.
    const auto found = std::ranges::find_if(list, [amount](const DiPtr<Container>& container) {
        return double{container->GetEncumbrance()} + amount < container->GetWeight();
    });
    return found == list.end() ? nullptr : found->get();
}

// A stack of one item with its weight.
struct Stack {
    std::uint32_t count;
    float weight;
};

bool Overloads(const Container& container, const Stack& stack) {
    return double{container.GetEncumbrance()} + stack.weight > container.GetWeight();
}

// Takes heavy items off the stack, but for the last, until the container can carry the rest.
void Lighten(Stack& stack, float unitWeight, const Container& container) {
    constexpr float kHeavy = 1.0F;
    if (unitWeight < kHeavy) {
        return;
    }
    // Light things are never left out: a container that is full to the last feather looks no
    // different.
    while (stack.count > 1 && Overloads(container, stack)) {
        --stack.count;
        // Rounded piece by piece.
        stack.weight = static_cast<float>(double{stack.weight} - unitWeight);
    }
}

} // namespace

void GenIntBase::SeedContents() const {
    if (const auto seed = info.randomInfo.contentSeed) {
        SeedRandom(*seed);
    }
}

void GenIntBase::AddContents(Layout& layout) {
    struct PlaceRow {
        std::string_view type;
        void (GenIntBase::*place)(SortedElmts&, const ThemeItem&);
    };
    static constexpr std::array<PlaceRow, 4> kFurnishing = {{
        {Content_Container, &GenIntBase::PlaceContainers},
        {Content_Furniture, &GenIntBase::PlaceFurniture},
        {Content_Rug, &GenIntBase::PlaceRugs},
        {Content_Tapestry, &GenIntBase::PlaceTapestries},
    }};
    static constexpr std::array<PlaceRow, 1> kPopulation = {{
        {Content_Creature, &GenIntBase::PlaceCreatures},
    }};
    // No furniture theme, no creatures either: an empty dungeon stays empty.
    if (!info.defTheme) {
        return;
    }
    // Sorted once for both themes: creatures find the places that furniture has left.
    SortedElmts sorted;
    SortLayout(sorted, layout);
    // Both messages name the furniture theme on purpose.
    const auto furnish = [&](const Theme& theme, const auto& rows, const char* kindOfTheme) {
        placed = &theme;
        for (const DiPtr<ThemeItem>& item : theme.items) {
            info.meter.Step(kStepsPerTurn);
            const auto row = std::ranges::find_if(
                rows, [&item](const PlaceRow& r) { return EqualsNoCase(item->type, r.type); });
            if (row != rows.end()) {
                (this->*row->place)(sorted, *item);
                continue;
            }
            ReportProblem({ProblemKind::UnknownThemeItem,
                           {item->type, kindOfTheme, info.defTheme->GetName()}});
        }
    };
    furnish(*info.defTheme, kFurnishing, "Theme");
    if (info.defCreatureTheme) {
        furnish(*info.defCreatureTheme, kPopulation, "CreatureTheme");
    }
    placed = nullptr;
}

void GenIntBase::PlaceContainers(SortedElmts& sorted, const ThemeItem& item) {
    WallAndCornerPlace(sorted, item, config->contentMgr->GetContainers());
}

void GenIntBase::PlaceFurniture(SortedElmts& sorted, const ThemeItem& item) {
    WallAndCornerPlace(sorted, item, config->contentMgr->GetFurniture());
}

void GenIntBase::PlaceTapestries(SortedElmts& sorted, const ThemeItem& item) {
    WallAndCornerPlace(sorted, item, config->contentMgr->GetTapestries());
}

void GenIntBase::PlaceRugs(SortedElmts& sorted, const ThemeItem& item) {
    // A rug fills nothing: people and things may stand on it.
    ElmtList elements = sorted.centers;
    PlaceItems(elements, item, config->contentMgr->GetRugs(), sorted.numCenters);
}

void GenIntBase::PlaceCreatures(SortedElmts& sorted, const ThemeItem& item) {
    ContentList candidates = config->contentMgr->GetCreatures();
    // Birds need a sky and fish need water.
    RemoveBySubtype(candidates, Creature_Bird.data());
    RemoveBySubtype(candidates, Creature_Fish.data());
    ElmtList elements = sorted.centers;
    // Centres, halls, walls: a draw picks by the place in this list.
    Append(elements, sorted.halls);
    Append(elements, sorted.walls);
    PlaceItems(elements, item, candidates, sorted.numWalls + sorted.numHalls + sorted.numCenters);
    // Only now: while placing, an element leaves the copy alone.
    RemoveFullElmts(sorted.centers);
    RemoveFullElmts(sorted.halls);
    RemoveFullElmts(sorted.walls);
}

// In caves the corners stay free: nothing stands straight in them.
void GenIntBase::WallAndCornerPlace(SortedElmts& sorted,
                                    const ThemeItem& item,
                                    const ContentList& candidates) {
    // Each item works on a copy: what it takes out of the list is free again for the next item,
    // unless it filled the place.
    ElmtList elements = sorted.walls;
    std::uint32_t count = sorted.numWalls;
    if (!tileSet->IsCave()) {
        Append(elements, sorted.corners);
        count += sorted.numCorners;
    }
    PlaceItems(elements, item, candidates, count);
    RemoveFullElmts(sorted.corners);
    RemoveFullElmts(sorted.walls);
}

void GenIntBase::PlaceItems(ElmtList& elements,
                            const ThemeItem& item,
                            const ContentList& candidates,
                            std::uint32_t count) {
    const std::int64_t toCopy = StepsOf(elements.size()) + StepsOf(candidates.size());
    if (elements.empty() || !info.meter.StepPlacing(toCopy)) {
        return;
    }
    // A share of all places that were sorted, not of those still free.
    const PlacementCounts counts = CountPlacements(item, count);
    const std::int64_t toSelect = kStepsPerTurn + StepsToSelect(item, candidates);
    for (std::int64_t turn = 0; HasTurn(turn, counts, item, placed); ++turn) {
        if (!info.meter.StepPlacing(toSelect + StepsOf(elements.size() / kMovesPerStep))) {
            return;
        }
        if (SkipsTurn(turn, counts, item)) {
            continue;
        }
        const DiPtr<ContentTemplate> content = SelectContent(item, candidates);
        // The content is chosen first, as its draws are made even when no place is left.
        if (!content || elements.empty()) {
            return;
        }
        // Each place is drawn once for an item, rugs too, which leave it free for other items.
        GridElmt* elmt = TakeElement(elements);
        PlaceItem(*content, *elmt);
        if (!content->IsKind(Content_Rug)) {
            elmt->isFull = true;
        }
    }
}

void GenIntBase::PlaceItem(const ContentTemplate& content, GridElmt& elmt) const {
    if (elmt.tiles.empty()) {
        return;
    }
    info.meter.TakeMemory(MemoryOf(content));
    const DiPtr<ContentItem> item = ContentMgr::CvtToItem(content);
    FitIntoElement(*item, elmt, *tileSet);
    elmt.AddContent(item);
}

DiPtr<ContentTemplate> GenIntBase::SelectContent(const ThemeItem& item,
                                                 const ContentList& candidates) const {
    if (item.uniqueNames.empty()) {
        return SelectItem(candidates);
    }
    // A single name is no choice and costs no draw.
    const auto& names = item.uniqueNames;
    const std::string& name = names.size() == 1 ? names.front() : DrawOne(names);
    DiPtr<ContentTemplate> content = ContentMgr::FindWithUniqueName(name, candidates);
    if (!content) {
        ReportProblem({ProblemKind::UnknownUniqueName, {name, item.type}});
    }
    return content;
}

DiPtr<ContentTemplate> GenIntBase::SelectItem(const ContentList& candidates) const {
    // Nothing to choose from, nothing drawn.
    if (candidates.empty()) {
        return nullptr;
    }
    // A list of nothing but treasures would be drawn from for ever, were it not for the meter.
    while (info.meter.StepPlacing(1)) {
        const DiPtr<ContentTemplate>& content = DrawOne(candidates);
        if (content->value <= kCommonValue) {
            return content;
        }
        // A second draw for the precious alone; a refusal costs the first one too and picks anew.
        const double draw = RandomUnit();
        if (draw <= AcceptedShare(content->value)) {
            return content;
        }
    }
    return nullptr;
}

DiPtr<ContentTemplate> GenIntBase::ThemeItemToContent(const ThemeItem& item) const {
    return SelectContent(item, config->contentMgr->GetList(item.type.c_str()));
}

std::uint32_t GenIntBase::DetermineQty(const ContentTemplate& content) const {
    // Negative and absent maxima mean a single piece.
    const std::int32_t most = std::max(content.maxCount, 1);
    // Drawn even for a single piece.
    std::int64_t quantity = RandomInt(most) + 1;
    if (quantity >= kLargePile && content.value * quantity > kPlausibleWorth) {
        const double draw = RandomUnit();
        // The value is above 0 here, or the pile would have been worth nothing.
        quantity = PileWorth(draw) / content.value;
    }
    // However much the worth would buy, the content says how many lie together at most.
    return static_cast<std::uint32_t>(std::clamp<std::int64_t>(quantity, 1, most));
}

void GenIntBase::RemoveFullElmts(ElmtList& list) {
    std::erase_if(list, [](const GridElmt* elmt) { return elmt->isFull; });
}

void GenIntBase::RemoveBySubtype(ContentList& list, const char* subtype) {
    std::erase_if(list, [subtype](const DiPtr<ContentTemplate>& content) {
        return content->IsSubtype(subtype);
    });
}

void GenIntBase::CvtContents(Cell& target,
                             const GridElmt& elmt,
                             const DiPos& pos,
                             const Di3Point& offset) {
    for (const DiPtr<ContentItem>& item : elmt.contents) {
        if (item->IsKind(Content_Container)) {
            MakeContainer(*item);
        }
        // After the container has its identifier, which is the one to be placed.
        Ref ref = MakeRef(item->uniqueName, item->offset, item->zRotate, pos, offset);
        ref.sort = SortOf(*item);
        target.AddRef(std::move(ref));
    }
}

// The item takes a fresh identifier, so that its treasure is its own.
void GenIntBase::MakeContainer(ContentItem& item) {
    item.uniqueName = NextContainerId();
    const DiPtr<Container> container = info.mod.CreateContainer();
    container->SetId(item.uniqueName.c_str());
    container->SetFriendlyName(item.friendlyName.c_str());
    container->SetModelName(item.modelFile.c_str());
    // What the content weighs is what its container holds.
    container->SetWeight(item.weight);
    containers.push_back(container);
}

void GenIntBase::AddCtrTreasure(std::vector<DiPtr<Container>>& filled) {
    if (!info.defTreasureTheme) {
        return;
    }
    placed = info.defTreasureTheme.get();
    for (const DiPtr<ThemeItem>& item : info.defTreasureTheme->items) {
        PlaceCtrTreasure(filled, *item);
    }
    placed = nullptr;
}

void GenIntBase::PlaceCtrTreasure(std::vector<DiPtr<Container>>& filled, const ThemeItem& item) {
    // Without containers nothing is drawn.
    if (filled.empty()) {
        return;
    }
    const ContentList& candidates = config->contentMgr->GetList(item.type.c_str());
    const PlacementCounts counts = CountTreasure(item, static_cast<std::uint32_t>(filled.size()));
    // The searches: for the content, and for a container with room.
    const std::int64_t toSearch =
        kStepsPerTurn + StepsToSelect(item, candidates) + StepsOf(filled.size());
    for (std::int64_t turn = 0; HasTurn(turn, counts, item, placed); ++turn) {
        if (!info.meter.StepPlacing(toSearch)) {
            return;
        }
        if (SkipsTurn(turn, counts, item)) {
            continue;
        }
        const DiPtr<ContentTemplate> content = SelectContent(item, candidates);
        // The first name that nobody knows ends the item, whatever other names it has.
        if (!content) {
            return;
        }
        Container* container = DrawOne(filled).get();
        // The container is drawn before the number of pieces.
        const std::uint32_t quantity = DetermineQty(*content);
        info.meter.Step(quantity);
        Stack stack{quantity, static_cast<float>(quantity * double{content->weight})};
        Lighten(stack, content->weight, *container);
        if (Overloads(*container, stack)) {
            // Drawn once only; the rest is a search.
            container = FindCtrWithRoom(filled, stack.weight);
        }
        if (container != nullptr) {
            info.meter.TakeMemory(sizeof(ContentItem) + content->uniqueName.size());
            container->Add(content->uniqueName.c_str(), stack.count);
            // A stack that no container can carry is dropped without a word: treasure is a matter
            // of luck.
            const double load = double{container->GetEncumbrance()} + stack.weight;
            container->SetEncumbrance(static_cast<float>(load));
        }
    }
}

} // namespace Tarnex
