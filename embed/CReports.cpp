// SPDX-License-Identifier: MIT
// What C can ask: everything as text.
#include "embed/Generator.h"
#include "tools/check/ConfigCheck.h"
#include "tools/check/GrammarJson.h"
#include "tools/facts/FactsJson.h"
#include "tools/maps/MapFile.h"
#include "tools/maps/MapJson.h"
#include "tools/maps/MapText.h"
#include "tools/plugins/DiffReport.h"
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/PluginChecks.h"
#include "tools/runs/Chosen.h"
#include "tools/runs/Description.h"
#include "tools/runs/Offer.h"
#include "tools/runs/RunJson.h"
#include "tools/runs/RunLine.h"
#include "tools/search/Judgement.h"
#include "tools/stage/ShapesJson.h"
#include "tools/stage/StagePlan.h"
#include "tools/text/ProblemJson.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/run/BuiltinConfigs.h>

#include <array>
#include <sstream>

namespace {

using namespace Tarnex;

// Makes a text of a generator, which keeps it; null when it is refused, and without an error where
// memory did not suffice. What was handed out before is still good meanwhile, so that it can be
// handed back in.
template <typename Make>
const char* Answer(vaultry_generator* generator, const Make& make) {
    const vaultry_result result = Enter(*generator, [&](RunState*) {
        std::string refused;
        try {
            generator->text = make();
            return VAULTRY_OK;
        } catch (const UsageError& e) {
            refused = e.what();
        } catch (const Report::MapError& e) {
            refused = e.what();
        } catch (const std::bad_alloc&) {
            generator->errors.clear();
            throw;
        }
        generator->errors.clear();
        Tell(*generator, refused);
        return VAULTRY_REFUSED;
    });
    return result == VAULTRY_OK ? generator->text.c_str() : nullptr;
}

const LastRun& RunOf(const vaultry_generator& generator) {
    if (!generator.run) {
        throw UsageError("nothing was generated from the configuration yet");
    }
    return *generator.run;
}

std::optional<Report::FactValues> FactsOf(vaultry_generator& generator) {
    if (!generator.run || generator.run->result.end != RunEnd::Made) {
        return std::nullopt;
    }
    const LastRun& run = *generator.run;
    std::vector<Report::LevelShape> shapes;
    for (const Report::LevelMap& map : run.maps->Maps()) {
        shapes.push_back(Report::ShapeOf(map));
    }
    GenMgr& manager = generator.manager;
    Report::DungeonTally tally = Report::Tally(manager.mod,
                                               run.result.levels,
                                               std::move(shapes),
                                               Report::ContentWorth(*manager.config.contentMgr));
    tally.seed = run.result.seed;
    tally.errors = run.result.problems.size();
    return Report::ValuesOf(tally);
}

template <Report::MapFormat Format>
std::string Drawn(vaultry_generator& generator) {
    const LastRun& run = RunOf(generator);
    Report::MapLevels& levels = *run.maps;
    std::ostringstream out;
    Report::WriteMaps(levels,
                      Report::SurveyOf(levels),
                      {run.result.seed,
                       Report::LevelWords(run.options),
                       generator.config,
                       {},
                       Report::ChosenNames(run.result.levels, run.options)},
                      Format,
                      {},
                      out);
    return std::move(out).str();
}

std::string Text(vaultry_generator& generator) {
    std::ostringstream out;
    for (const Report::LevelMap& map : RunOf(generator).maps->Maps()) {
        Report::PrintMap(map, {}, out);
        out << '\n';
    }
    return std::move(out).str();
}

std::string MapJson(vaultry_generator& generator) {
    return Report::ToJson(*RunOf(generator).maps, generator.manager.mod);
}

struct MapKind {
    std::string_view word;
    std::string (*make)(vaultry_generator& generator);
};

constexpr std::array<MapKind, 4> kMapKinds = {{{"svg", Drawn<Report::MapFormat::Svg>},
                                               {"html", Drawn<Report::MapFormat::Html>},
                                               {"text", Text},
                                               {"json", MapJson}}};

std::string MapAs(vaultry_generator& generator, std::string_view word) {
    for (const MapKind& kind : kMapKinds) {
        if (kind.word == word) {
            return kind.make(generator);
        }
    }
    throw UsageError("a map is \"svg\", \"html\", \"text\" or \"json\"");
}

Report::LoadedPlugin PluginOf(const void* bytes, size_t length, const char* name) {
    const char* const begin = static_cast<const char*>(bytes);
    return Report::ReadLoaded(TextOf(name),
                              begin == nullptr ? std::string() : std::string(begin, length));
}

} // namespace

int vaultry_schema(void) {
    return Report::kJsonSchema;
}

const char* vaultry_run_json(vaultry_generator* generator) {
    return Answer(generator, [=] {
        const LastRun& run = RunOf(*generator);
        return Report::ToJson(run.result, run.options);
    });
}

const char* vaultry_map(vaultry_generator* generator, const char* kind) {
    return Answer(generator, [=] { return MapAs(*generator, TextOf(kind)); });
}

const char* vaultry_facts_json(vaultry_generator* generator) {
    return Answer(generator, [=] {
        const std::optional<Report::FactValues> facts = FactsOf(*generator);
        if (!facts) {
            throw UsageError("there are no facts: the last run made no dungeon");
        }
        return Report::ToJson(*facts);
    });
}

const char* vaultry_fact_list_json(vaultry_generator* generator) {
    return Answer(generator, [] { return Report::FactListJson(); });
}

const char* vaultry_judge_json(vaultry_generator* generator, const char* condition) {
    return Answer(generator,
                  [=] { return Search::JudgementJson(TextOf(condition), FactsOf(*generator)); });
}

const char* vaultry_choices_json(vaultry_generator* generator) {
    return Answer(generator, [=] {
        std::vector<std::string> errors;
        for (const Problem& problem : generator->problems) {
            errors.push_back(TextOf(problem));
        }
        return Report::ToJson(
            {generator->config, {}, Report::OfferedLists(generator->manager), std::move(errors)});
    });
}

const char* vaultry_presets_json(vaultry_generator* generator) {
    return Answer(generator, [] {
        Report::Json json = Report::JsonHeader();
        json["presets"] = Report::PresetsJson(Report::BuiltinPresetList());
        return Report::JsonText(json);
    });
}

const char* vaultry_problems_json(vaultry_generator* generator) {
    return Answer(generator, [=] { return Report::ToJson(generator->problems); });
}

const char* vaultry_options_json(vaultry_generator* generator) {
    return Answer(generator, [] { return Report::OptionListJson(); });
}

const char* vaultry_grammar_json(vaultry_generator* generator) {
    return Answer(generator, [] { return Report::GrammarJson(); });
}

const char* vaultry_command_line(vaultry_generator* generator) {
    return Answer(generator, [=] {
        const LastRun& run = RunOf(*generator);
        return Report::GenerateCommandLine(RequestOf(*generator), run.result.seed);
    });
}

const char* vaultry_command_line_json(vaultry_generator* generator, const char* line) {
    return Answer(generator, [=] { return Report::ToJson(Report::ReadCommandLine(TextOf(line))); });
}

const char* vaultry_check_json(vaultry_generator* generator,
                               const char* text,
                               size_t length,
                               const char* name) {
    return Answer(generator, [=] {
        const std::string_view document(TextOf(text), text == nullptr ? 0 : length);
        return Report::ToJson(
            Report::CheckConfig(TextOf(name), RecordConfigText(document, TextOf(name))));
    });
}

const char* vaultry_shapes_json(vaultry_generator* generator,
                                const char* text,
                                size_t length,
                                const char* name) {
    return Answer(generator, [=] {
        const std::string source = TextOf(name);
        const BuiltinConfig* builtin = text == nullptr ? FindBuiltinConfig(source) : nullptr;
        if (text == nullptr && builtin == nullptr) {
            throw UsageError("there is no built-in configuration \"" + source + '"');
        }
        const std::string_view document =
            builtin != nullptr ? builtin->text : std::string_view(text, length);
        ConfigRecord record = RecordConfigText(document, source.c_str());
        if (record.fatal) {
            throw UsageError("the configuration \"" + source +
                             "\" cannot be read to its end; vaultry_check_json tells why");
        }
        return Report::ShapesJson(Report::PlanStage({{source, std::move(record)}}));
    });
}

const char* vaultry_inspect_json(vaultry_generator* generator,
                                 const void* plugin,
                                 size_t length,
                                 const char* name) {
    return Answer(generator, [=] {
        const Report::LoadedPlugin loaded = PluginOf(plugin, length, name);
        const std::vector<PluginFinding> findings = Report::FindInconsistencies(loaded.file);
        return Report::ToJson(
            Report::Inspection{loaded.path,
                               loaded.file,
                               findings,
                               {},
                               Report::CommandIn(ToUtf8(loaded.file.header.description))});
    });
}

const char* vaultry_compare_json(vaultry_generator* generator,
                                 const void* a,
                                 size_t length_of_a,
                                 const void* b,
                                 size_t length_of_b) {
    return Answer(generator, [=] {
        return Report::ToJson(
            Report::Diff(PluginOf(a, length_of_a, "a"), PluginOf(b, length_of_b, "b")));
    });
}
