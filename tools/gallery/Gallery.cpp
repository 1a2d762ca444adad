// SPDX-License-Identifier: MIT
#include "tools/gallery/Gallery.h"

#include "tools/text/Words.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/run/BuiltinConfigs.h>
#include <vaultry/run/Run.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>

namespace Tarnex::Report {

namespace {

constexpr std::uint32_t kSampleSeed = 11;

// A level of it as it is drawn, the first that was made.
std::optional<LevelMap> SampleOf(GenMgr& manager, RunOptions options) {
    options.seed = options.seed.value_or(kSampleSeed);
    options.stamp = 1;
    MapCollector maps;
    manager.SetLevelObserver(&maps);
    const RunResult result = Run(manager, options).Generate();
    manager.SetLevelObserver(nullptr);
    const bool made = result.end == RunEnd::Made && !maps.Maps().empty();
    return made ? std::optional(std::move(maps.Maps().front())) : std::nullopt;
}

// Some tile sets are of no use for random levels: of those a layout is shown.
std::optional<LevelMap> AnySampleOf(GenMgr& manager, RunOptions options) {
    options.levelSize = RandomGenInfo::Tiny;
    if (auto random = SampleOf(manager, options)) {
        return random;
    }
    options.fixed = true;
    return SampleOf(manager, options);
}

// The name that is taken when none is given, or would be among these alone.
std::optional<std::string> UsualOf(const std::vector<OfferedList>& lists, std::string_view option) {
    const auto list = std::ranges::find(
        lists, option, [](const OfferedList& l) { return std::string_view(l.option); });
    if (list == lists.end() || list->names.empty()) {
        return std::nullopt;
    }
    const auto usual = std::ranges::find(list->names, true, &OfferedName::isDefault);
    return (usual == list->names.end() ? list->names.front() : *usual).name;
}

std::string Times(const ThemeItem& item) {
    std::string words = Number(double{item.ratio}) + " for each place";
    if (item.chance < 1) {
        words += ", by a chance of " + Number(double{item.chance} * 100) + " %";
    }
    if (item.minimum > 0) {
        words += ", at least " + std::to_string(item.minimum);
    }
    if (item.maximum != ThemeItem::kNotGiven) {
        words += ", at most " + std::to_string(item.maximum);
    }
    return words;
}

std::vector<std::string> PlacesOf(const Theme& theme) {
    std::vector<std::string> lines;
    for (const DiPtr<ThemeItem>& item : theme.items) {
        std::vector<std::string> names;
        for (const std::string& name : item->uniqueNames) {
            names.push_back(Shown(name));
        }
        lines.push_back(Shown(item->type) + ": " + (names.empty() ? "any" : JoinWords(names)) +
                        "; " + Times(*item));
    }
    return lines;
}

std::vector<std::string>
PlacesOf(GenMgr& manager, std::string_view option, const std::string& name) {
    const auto& themes = option == "theme"            ? manager.GetThemes()
                         : option == "creature-theme" ? manager.GetCreatureThemes()
                                                      : manager.GetTreasureThemes();
    const auto theme =
        std::ranges::find(themes, name, [](const DiPtr<Theme>& t) { return ToUtf8(t->GetName()); });
    return theme == themes.end() ? std::vector<std::string>() : PlacesOf(**theme);
}

std::string Switch(std::string_view option, const std::string& name) {
    return "--" + std::string(option) + ' ' + ForShell(name);
}

std::string WordsOf(const OfferedName& offered) {
    std::vector<std::string> words;
    if (offered.size) {
        words.push_back(std::to_string(offered.size->x) + " x " + std::to_string(offered.size->y) +
                        " cells");
    }
    if (offered.level.value_or(0) != 0) {
        words.push_back("level " + std::to_string(*offered.level));
    }
    if (offered.isDefault) {
        words.emplace_back("taken when nothing is named");
    }
    return JoinWords(words);
}

// What one thing of a list looks like.
class Sampler {
public:
    Sampler(const std::vector<OfferedList>& offered, GenMgr& genMgr)
        : lists(offered), manager(genMgr) {}

    GalleryCard CardOf(const OfferedList& list, const OfferedName& offered) {
        const std::string_view option = list.option;
        const bool isLayout = option.ends_with("template");
        GalleryCard card{offered.name,
                         WordsOf(offered),
                         (isLayout ? "--fixed " : "") + Switch(option, offered.name),
                         std::nullopt,
                         {}};
        if (isLayout) {
            card.map = LayoutOf(option, offered.name);
        } else if (option.ends_with("tileset")) {
            card.map = TilesOf(option, offered.name);
        } else {
            card.places = PlacesOf(manager, option, offered.name);
        }
        if (option == "theme") {
            RunOptions options;
            options.theme = offered.name;
            card.map = AnySampleOf(manager, options);
        }
        return card;
    }

private:
    std::optional<LevelMap> LayoutOf(std::string_view option, const std::string& name) {
        const bool ofCave = option == "cave-template";
        RunOptions options;
        options.fixed = true;
        (ofCave ? options.caveLayout : options.layout) = name;
        if (ofCave) {
            options.caveTileSet = UsualOf(lists, "cave-tileset");
        } else {
            options.tileSet = UsualOf(lists, "tileset");
        }
        return SampleOf(manager, options);
    }

    std::optional<LevelMap> TilesOf(std::string_view option, const std::string& name) {
        RunOptions options;
        if (option == "cave-tileset") {
            options.caveTileSet = name;
            options.caveLayout = UsualOf(lists, "cave-template");
        } else {
            options.tileSet = name;
            options.layout = UsualOf(lists, "template");
        }
        return AnySampleOf(manager, options);
    }

    const std::vector<OfferedList>& lists;
    GenMgr& manager;
};

// Presets, of which several have one configuration.
class PresetSampler {
public:
    GalleryCard CardOf(const Preset& preset) {
        RunRequest request;
        request.seed = FurtherSeed(kSampleSeed, ++count); // or all would have one plan
        Apply(preset, request);
        return {preset.name,
                preset.description,
                Switch("preset", preset.name),
                SampleOf(ManagerOf(request.config), request),
                {}};
    }

private:
    GenMgr& ManagerOf(const std::string& config) {
        std::unique_ptr<GenMgr>& manager = managers[config];
        if (!manager) {
            manager = std::make_unique<GenMgr>();
            LoadBuiltin(*manager, *FindBuiltinConfig(config), config.c_str());
        }
        return *manager;
    }

    std::map<std::string, std::unique_ptr<GenMgr>> managers;
    std::uint32_t count = 0;
};

} // namespace

std::vector<GallerySection> GalleryOf(const Offer& offer, GenMgr& manager) {
    std::vector<GallerySection> sections;
    if (!offer.presets.empty()) {
        GallerySection& section = sections.emplace_back();
        section.title = "Presets";
        PresetSampler presets;
        for (const Preset& preset : offer.presets) {
            section.cards.push_back(presets.CardOf(preset));
        }
    }
    Sampler sampler(offer.lists, manager);
    for (const OfferedList& list : offer.lists) {
        if (list.names.empty()) {
            continue;
        }
        GallerySection& section = sections.emplace_back();
        section.title = list.title;
        for (const OfferedName& offered : list.names) {
            section.cards.push_back(sampler.CardOf(list, offered));
        }
    }
    return sections;
}

} // namespace Tarnex::Report
