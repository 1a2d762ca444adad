// SPDX-License-Identifier: MIT
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/LockWords.h"
#include "tools/plugins/PluginIndex.h"
#include "tools/text/TextTable.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Text.h>
#include <algorithm>

#include <array>
#include <charconv>
#include <unordered_map>

namespace Tarnex::Report {

namespace {

constexpr std::uint32_t kHasWater = 2;
constexpr auto kLeft = TextTable::Align::Left;
constexpr auto kRight = TextTable::Align::Right;

// The cell in which each container stands, by its upper-case id.
using ContainerPlaces = std::unordered_map<std::string, const PluginCell*>;

void PrintFact(std::ostream& out, std::string_view label, const std::string& text) {
    constexpr std::size_t kLabelWidth = 13;
    out << "  " << label << std::string(kLabelWidth - label.size(), ' ') << text << '\n';
}

std::string RangeWords(const char* axis, float low, float high) {
    std::string text = axis;
    text += ' ' + Number(low) + " to " + Number(high);
    return text;
}

void PrintSkipped(const PluginFile& file, std::ostream& out) {
    std::string text;
    const auto add = [&text](std::uint64_t count, const char* noun, const std::string& tags) {
        if (count > 0) {
            text += text.empty() ? "" : ", ";
            text += Counted(count, noun);
            text += tags.empty() ? "" : " (" + tags + ')';
        }
    };
    add(UnreadExteriors(file), "exterior cell", "");
    add(Total(file.otherRecords), "other record", TagWords(file.otherRecords));
    add(Total(file.skippedSubRecords), "sub-record", TagWords(file.skippedSubRecords));
    if (!text.empty()) {
        PrintFact(out, "Not shown", text);
    }
}

void PrintHeader(const Inspection& inspection, std::ostream& out) {
    const PluginFile& file = inspection.file;
    const PluginHeader& header = file.header;
    out << ForTerminal(inspection.path) << ": " << TypeWords(header.type) << ", "
        << Counted(file.size, "byte") << ", version " << ExactNumber(header.version) << '\n';
    PrintFact(out, "Author", Shown(header.author));
    PrintFact(out, "Description", Shown(header.description));
    if (!inspection.command.empty()) {
        PrintFact(out, "Made by", inspection.command);
    }
    for (const PluginMaster& master : header.masters) {
        PrintFact(out, "Master", Shown(master.name) + ", " + Counted(master.size, "byte"));
    }
    PrintFact(out,
              "Records",
              std::to_string(file.records) + " (" + Counted(file.cells.size(), "interior") + ", " +
                  (file.keys.empty() ? "" : Counted(file.keys.size(), "key") + ", ") +
                  Counted(file.containers.size(), "container") + "); the header says " +
                  std::to_string(header.recordCount));
    PrintSkipped(file, out);
}

// Words that continue others, if there are any.
std::string Behind(const std::string& words) {
    return words.empty() ? words : ", " + words;
}

std::string DestinationWords(const PluginDestination& destination, const PluginIndex& index) {
    if (destination.cell.empty()) {
        return "the outside";
    }
    return Quoted(destination.cell) +
           (index.HasCell(destination.cell) ? "" : ", not in this plug-in");
}

void PrintLocks(const CellSummary& summary, std::ostream& out) {
    if (summary.lockedDoors + summary.lockedContainers + summary.traps > 0) {
        PrintFact(out,
                  "Locked",
                  Counted(summary.lockedDoors, "door") + ", " +
                      Counted(summary.lockedContainers, "container") + "; " +
                      Counted(summary.traps, "trap"));
    }
}

void PrintTeleports(const PluginCell& cell, const PluginIndex& index, std::ostream& out) {
    for (const PluginRef& ref : cell.refs) {
        if (ref.destination) {
            const PluginPlace& arrival = ref.destination->arrival;
            PrintFact(out,
                      "Leads to",
                      DestinationWords(*ref.destination, index) + ", at " +
                          PointWords(arrival.position) + " facing " +
                          Number(Degrees(arrival.rotation.z)) + ", by reference " + RefNumber(ref) +
                          Behind(LockWords(ref.lock)));
        }
    }
}

void PrintRefs(const PluginCell& cell, const PluginIndex& index, std::ostream& out) {
    TextTable table({kRight, kLeft, kRight, kRight, kRight, kRight, kRight, kRight, kRight, kLeft});
    table.Add({"No.", "Object", "x", "y", "z", "about x", "y", "z", "scale", ""});
    for (const PluginRef& ref : cell.refs) {
        const auto& [position, rotation] = ref.place;
        std::string remark = ref.deleted ? "deleted" : "";
        if (ref.destination) {
            remark += "to " + DestinationWords(*ref.destination, index);
        }
        remark += remark.empty() ? LockWords(ref.lock) : Behind(LockWords(ref.lock));
        table.Add({RefNumber(ref),
                   Shown(ref.id),
                   Number(position.x),
                   Number(position.y),
                   Number(position.z),
                   Number(Degrees(rotation.x)),
                   Number(Degrees(rotation.y)),
                   Number(Degrees(rotation.z)),
                   Number(ref.scale),
                   remark});
    }
    table.Print(out, 2);
}

// What one types into the game's console to stand in the cell of that number.
void PrintArrival(const Inspection& inspection, std::size_t number, std::ostream& out) {
    const auto found = std::ranges::find(inspection.arrivals, number, &Arrival::level);
    if (found != inspection.arrivals.end()) {
        PrintFact(out, "Arrive", ConsoleLine(*found));
    }
}

void PrintCell(const Inspection& inspection,
               std::size_t number,
               const PluginIndex& index,
               bool refs,
               std::ostream& out) {
    const PluginCell& cell = inspection.file.cells[number];
    const CellSummary summary = Summarise(cell, index);
    out << "\nCell " << Quoted(cell.name) << ": " << Counted(cell.refs.size(), "reference") << ", "
        << Counted(summary.doors, "door") << ", " << Counted(summary.teleports, "teleport") << ", "
        << Counted(summary.containers, "container") << (cell.deleted ? ", deleted" : "") << '\n';
    if (summary.bounds) {
        const auto& [low, high] = *summary.bounds;
        PrintFact(out,
                  "Bounds",
                  RangeWords("x", low.x, high.x) + ", " + RangeWords("y", low.y, high.y) + ", " +
                      RangeWords("z", low.z, high.z));
    }
    PrintFact(out,
              "Light",
              "ambient " + ColorWords(cell.ambient) + ", sun " + ColorWords(cell.sunlight) +
                  ", fog " + ColorWords(cell.fog) + " density " + Number(cell.fogDensity));
    if ((cell.flags & kHasWater) != 0) {
        PrintFact(out, "Water", "at height " + Number(cell.waterHeight));
    }
    if (const PluginPathGrid* grid = index.PathGridOf(cell)) {
        PrintFact(out,
                  "Path grid",
                  Counted(grid->points.size(), "point") + ", " + Counted(CountWays(*grid), "way"));
    }
    PrintLocks(summary, out);
    PrintArrival(inspection, number, out);
    PrintTeleports(cell, index, out);
    if (refs && !cell.refs.empty()) {
        PrintRefs(cell, index, out);
    }
}

void PrintExterior(const PluginCell& cell, const PluginIndex& index, bool refs, std::ostream& out) {
    out << "\nOutside (" << GridWords(cell) << ')'
        << (cell.name.empty() ? "" : ", " + Quoted(cell.name)) << ": "
        << (cell.region.empty() ? "no region" : "region " + Quoted(cell.region)) << ", "
        << Counted(cell.refs.size(), "teleport") << (cell.deleted ? ", deleted" : "") << '\n';
    PrintTeleports(cell, index, out);
    if (refs) {
        PrintRefs(cell, index, out);
    }
}

ContainerPlaces FindContainers(const PluginFile& file, const PluginIndex& index) {
    ContainerPlaces places;
    for (const PluginCell& cell : file.cells) {
        for (const PluginRef& ref : cell.refs) {
            if (index.HasContainer(ref.id)) {
                places.emplace(ToUpper(ref.id), &cell);
            }
        }
    }
    return places;
}

// What the key opens in the plug-in, by its upper-case id.
using Opened = std::unordered_map<std::string, std::uint64_t>;

Opened FindOpened(const PluginFile& file) {
    Opened opened;
    for (const PluginCell& cell : file.cells) {
        for (const PluginRef& ref : cell.refs) {
            if (ref.lock && !ref.lock->key.empty()) {
                ++opened[ToUpper(ref.lock->key)];
            }
        }
    }
    return opened;
}

void PrintKeys(const PluginFile& file, std::ostream& out) {
    const Opened opened = FindOpened(file);
    for (const PluginKey& key : file.keys) {
        const auto found = opened.find(ToUpper(key.id));
        out << "\nKey " << Shown(key.id) << ": " << Quoted(key.name) << ", opens "
            << Counted(found == opened.end() ? 0 : found->second, "reference")
            << (key.deleted ? ", deleted" : "");
    }
    out << (file.keys.empty() ? "" : "\n");
}

void PrintContainer(const PluginContainer& container,
                    const ContainerPlaces& places,
                    std::ostream& out) {
    const auto place = places.find(ToUpper(container.id));
    out << "\nContainer " << Shown(container.id) << ": " << Quoted(container.name) << ", "
        << Shown(container.model) << ", capacity " << Number(container.capacity)
        << (place == places.end() ? "" : ", in " + Quoted(place->second->name))
        << (container.deleted ? ", deleted" : "") << '\n';
    TextTable items({kRight, kLeft});
    for (const PluginItem& item : container.items) {
        items.Add({std::to_string(item.count), Shown(item.id)});
    }
    items.Print(out, 4);
}

std::string Hexadecimal(std::uint64_t offset) {
    std::array<char, 16> digits{};
    const auto [end, fault] =
        std::to_chars(digits.data(), digits.data() + digits.size(), offset, 16);
    std::string text(digits.data(), end);
    return "0x" + ToUpper(text);
}

void PrintFindings(const Inspection& inspection, std::ostream& out) {
    if (inspection.findings.empty()) {
        out << "\nNo inconsistencies.\n";
        return;
    }
    const std::uint64_t leftOut = inspection.file.findingsLeftOut;
    out << '\n' << Counted(inspection.findings.size() + leftOut, "finding") << ":\n";
    TextTable table({kRight, kLeft});
    for (const PluginFinding& finding : inspection.findings) {
        table.Add({Hexadecimal(finding.offset), finding.text});
    }
    table.Print(out, 2);
    if (leftOut > 0) {
        out << "  and " << leftOut << " more\n";
    }
}

void PrintTotals(const Inspection& inspection, const PluginIndex& index, std::ostream& out) {
    const PluginTotals totals = TotalsOf(inspection.file, index);
    out << "\nTotal: " << Counted(inspection.file.cells.size(), "interior") << ", "
        << Counted(totals.references, "reference") << ", " << Counted(totals.doors, "door") << ", "
        << Counted(totals.teleports, "teleport") << ", " << Counted(totals.lights, "light") << ", "
        << Counted(totals.containers, "container") << " with " << Counted(totals.items, "item")
        << '\n';
    if (const auto& known = inspection.known) {
        out << "  By " << ForTerminal(known->config) << ": " << Counted(known->areas, "area")
            << " between doorways, " << Counted(known->creatures, "creature") << ", treasure worth "
            << known->treasure << " gold pieces" << '\n';
    }
}

} // namespace

void PrintInspection(const Inspection& inspection, bool refs, std::ostream& out) {
    const PluginFile& file = inspection.file;
    const PluginIndex index(file);
    PrintHeader(inspection, out);
    for (std::size_t number = 0; number < file.cells.size(); ++number) {
        PrintCell(inspection, number, index, refs, out);
    }
    for (const PluginCell& cell : file.exteriors) {
        PrintExterior(cell, index, refs, out);
    }
    PrintKeys(file, out);
    const ContainerPlaces places = FindContainers(file, index);
    for (const PluginContainer& container : file.containers) {
        PrintContainer(container, places, out);
    }
    PrintTotals(inspection, index, out);
    PrintFindings(inspection, out);
}

} // namespace Tarnex::Report
