// SPDX-License-Identifier: MIT
#include "tools/runs/RunJson.h"

#include "tools/text/PlaceJson.h"

#include <vaultry/foundation/CodePage.h>

#include <array>
#include <utility>

namespace Tarnex::Report {

namespace {

struct JsonOf {
    Json operator()(std::monostate /*missing*/) const { return nullptr; }
    template <typename T>
    Json operator()(const T& value) const {
        return value;
    }
};

Json LevelJson(const LevelReport& level) {
    Json halls = Json::array();
    for (const FailedHall& hall : level.failedHalls) {
        halls.push_back({{"from", {hall.from.x, hall.from.y}}, {"to", {hall.to.x, hall.to.y}}});
    }
    return {{"level", level.number},
            {"name", ToUtf8(level.name)},
            {"made", level.made},
            {"floor-plans", level.attempts},
            {"rooms", level.rooms.size()},
            {"reachable-rooms", level.ReachableRooms()},
            {"openings-onto-nothing", level.openEnds},
            {"linked-to-level-before", level.linked},
            {"walkable", level.IsWalkable()},
            {"failed-halls", std::move(halls)}};
}

// In the order of RunEnd.
constexpr std::array<const char*, 5> kEndWords = {
    "made", "refused", "cancelled", "unwalkable", "unclosed"};

// In the order of OptionKind.
constexpr std::array<const char*, 8> kKindWords = {
    "switch", "text", "number", "word", "place", "folder", "range", "file"};

Json TextOrNull(const char* text) {
    return text == nullptr ? Json(nullptr) : Json(text);
}

Json OptionJson(const OptionRow& row) {
    const OptionKind kind = KindOf(row);
    const bool number = kind == OptionKind::Number || kind == OptionKind::Range;
    return {{"name", row.name},
            {"letter", TextOrNull(row.letter)},
            {"help", row.help},
            {"kind", kKindWords.at(static_cast<std::size_t>(kind))},
            {"least", number ? Json(row.least) : Json(nullptr)},
            {"most", number ? Json(row.most) : Json(nullptr)},
            {"words", WordsOf(row)},
            {"names", row.choice == nullptr ? Json(nullptr) : Json(row.choice->what)},
            {"in-place-of", TextOrNull(row.rival)},
            {"default", std::visit(JsonOf(), ValueOf(RunOptions(), row))}};
}

template <typename T>
Json NameOrNull(const DiPtr<T>& object) {
    return object ? Json(ToUtf8(object->GetName())) : Json(nullptr);
}

Json ChoicesJson(const LevelChoices& level) {
    const bool random = level.number > 0;
    const DiPos& grid = level.roomGrid;
    const SpacingRange& spacing = level.spacing;
    return {{"level", random ? Json(level.number) : Json(nullptr)},
            {"cell", ToUtf8(level.cell)},
            {"tileset", NameOrNull(level.tileSet)},
            {"layout", NameOrNull(level.layout)},
            {"theme", NameOrNull(level.theme)},
            {"creature-theme", NameOrNull(level.creatureTheme)},
            {"treasure-theme", NameOrNull(level.treasureTheme)},
            {"room-grid", random ? Json({grid.x, grid.y}) : Json(nullptr)},
            {"spacing", random ? Json({spacing.lo, spacing.hi}) : Json(nullptr)}};
}

} // namespace

Json LevelsJson(const GenReport& report) {
    Json levels = Json::array();
    for (const LevelReport& level : report.levels) {
        levels.push_back(LevelJson(level));
    }
    return levels;
}

Json ChosenJson(const GenReport& report) {
    Json levels = Json::array();
    for (const LevelChoices& level : report.chosen) {
        levels.push_back(ChoicesJson(level));
    }
    return levels;
}

Json OptionsJson(const RunOptions& options) {
    Json json = Json::object();
    for (const OptionRow& row : RunOptionRows()) {
        if ((row.uses & kReported) != 0) {
            json[row.name] = std::visit(JsonOf(), ValueOf(options, row));
        }
    }
    return json;
}

Json PresetsJson(const std::vector<Preset>& presets) {
    Json list = Json::array();
    for (const Preset& preset : presets) {
        Json options = Json::object();
        for (const auto& [name, text, line] : preset.options) {
            options[name] = text;
        }
        list.push_back({{"name", preset.name},
                        {"description", preset.description},
                        {"options", std::move(options)}});
    }
    return list;
}

std::string OptionListJson() {
    Json json = JsonHeader();
    Json& list = json["options"] = Json::array();
    for (const OptionRow& row : RunOptionRows()) {
        list.push_back(OptionJson(row));
    }
    return JsonText(json);
}

std::string ToJson(const RunRequest& request) {
    Json json = JsonHeader();
    json["config"] = request.config;
    json["keep-going"] = request.keepGoing;
    Json& options = json["options"] = Json::object();
    for (const OptionRow& row : RunOptionRows()) {
        if (!IsDefault(request, row)) {
            options[row.name] = TextOf(ValueOf(request, row));
        }
    }
    return JsonText(json);
}

std::string ToJson(const RunResult& run, const RunOptions& options) {
    Json json = JsonHeader();
    json["result"] = kEndWords.at(static_cast<std::size_t>(run.end));
    json["seed"] = run.seed;
    json["stamp"] = run.stamp;
    json["options"] = OptionsJson(options);
    json["levels"] = LevelsJson(run.levels);
    json["chosen"] = ChosenJson(run.levels);
    json["arrivals"] = ArrivalsJson(run.arrivals);
    json["entrance"] = EntranceJson(run.entrance);
    json["walkable"] = options.fixed ? Json(nullptr) : Json(run.levels.IsWalkable());
    json["tries"] = run.tries;
    json["errors"] = ErrorLines(run.problems);
    return JsonText(json);
}

} // namespace Tarnex::Report
