// SPDX-License-Identifier: MIT
#include "cli/MergedTables.h"

#include "cli/CommandWords.h"
#include "tools/search/HitTable.h"
#include "tools/text/OrdinaryFile.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <fstream>
#include <optional>

namespace Tarnex::Cli {

namespace {

// A table comes from a stranger, and its lines are printed to be pasted into a shell.
std::string
UnderstoodCommand(const Search::Hit& hit, GenerateLines& lines, const Search::HitReader& reader) {
    try {
        const GenerateLines::Understood understood = lines.Read(hit.command);
        if (understood.seed == hit.values.front()) {
            return understood.line;
        }
    } catch (const UsageError& e) {
        reader.Refuse(
            "under \"command\" stands no line of vaultry generate: " + std::string(e.what()) +
            "; only tables that vaultry search --csv wrote can be merged");
    }
    reader.Refuse("the command makes another seed than that under \"seed\"");
}

// Returns whether there are lines of earlier versions.
bool ReadTable(const std::string& path,
               const Search::Condition& where,
               const CancelSignals& signals,
               std::size_t most,
               MergedTables& tables) {
    Report::RequireOrdinaryFile(path);
    std::ifstream stream(PathFromUtf8(path), std::ios::binary);
    if (!stream) {
        throw UsageError("the table \"" + path + "\" cannot be opened");
    }
    Search::HitReader reader(stream, path);
    GenerateLines lines;
    while (!signals.Requested()) {
        std::optional<Search::Hit> hit = reader.Next();
        if (!hit) {
            break;
        }
        hit->command = UnderstoodCommand(*hit, lines, reader);
        if (!where.Holds(hit->values)) {
            ++tables.missed;
            // Of interest only while nothing is found.
            if (tables.hits.empty()) {
                tables.shortfall.Note(hit->values);
            }
            continue;
        }
        tables.hits.insert(*std::move(hit));
        if (tables.hits.size() > most) {
            reader.Refuse("more than " + std::to_string(most) +
                          " dungeons are not merged at once; ask for fewer with --where");
        }
    }
    return lines.ReadOlder();
}

} // namespace

MergedTables ReadTables(const std::vector<std::string>& paths,
                        const Search::Condition& where,
                        const CancelSignals& signals,
                        std::size_t most) {
    MergedTables tables{{}, {}, 0, Search::Shortfall(where)};
    for (const std::string& path : paths) {
        try {
            if (ReadTable(path, where, signals, most, tables)) {
                tables.older.push_back(path);
            }
        } catch (const std::ios_base::failure&) {
            throw UsageError("the table \"" + path + "\" cannot be read");
        }
    }
    return tables;
}

std::string OlderTable(const std::string& path) {
    return "the table \"" + path +
           "\" is of an earlier version: where its lines name none, the size is Random, the cell "
           "\"Vaultry Dungeon\", and builtin:caves and builtin:grottoes begin with rooms";
}

} // namespace Tarnex::Cli
