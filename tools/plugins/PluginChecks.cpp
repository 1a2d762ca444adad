// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginChecks.h"

#include "tools/plugins/LockWords.h"
#include "tools/plugins/PluginIndex.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>
#include <vaultry/output/RefLock.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace Tarnex::Report {

namespace {

// How long a text the game takes.
struct Limit {
    const char* what;
    const char* aWhat;   // with its article
    std::size_t longest; // [bytes]
};

constexpr Limit kIdLimit = {"id", "an id", 31};
constexpr Limit kCellNameLimit = {"name", "a name", 63};
constexpr float kSmallestScale = 0.5F;
constexpr float kLargestScale = 2.0F;
// The bit of a container's flags that readers demand.
constexpr std::uint32_t kContainerFlag = 8;
constexpr unsigned kMasterShift = 24;

std::string TooLong(const std::string& text, const Limit& limit) {
    return " of " + std::to_string(text.size()) + " bytes, the game takes " +
           std::to_string(limit.longest);
}

class Checker {
public:
    explicit Checker(const PluginFile& plugin) : file(plugin), index(plugin) {}

    std::vector<PluginFinding> Run() {
        findings = file.findings;
        CheckHeader();
        for (const PluginCell& cell : file.cells) {
            CheckCell(cell);
        }
        for (const PluginCell& cell : file.exteriors) {
            CheckExterior(cell);
        }
        for (const PluginContainer& container : file.containers) {
            CheckContainer(container);
        }
        CheckKeys();
        for (const PluginPathGrid& grid : file.pathGrids) {
            CheckPathGrid(grid);
        }
        std::ranges::stable_sort(findings, {}, &PluginFinding::offset);
        return std::move(findings);
    }

private:
    void Report(std::uint64_t offset, const std::string& owner, const std::string& text) {
        findings.push_back({offset, owner + ' ' + text});
    }

    void CheckHeader() {
        const std::uint32_t count = file.header.recordCount;
        if (file.complete && count != 0 && count != file.records) {
            Report(0,
                   "the header says",
                   Counted(count, "record") + ", " + std::to_string(file.records) + " follow");
        }
        for (const PluginMaster& master : file.header.masters) {
            if (master.name.empty()) {
                Report(0, "the header", "names a master without a name");
            }
        }
    }

    void CheckLength(std::uint64_t offset,
                     const std::string& owner,
                     const std::string& text,
                     const Limit& limit) {
        if (text.empty()) {
            Report(offset, owner, std::string("has no ") + limit.what);
        } else if (text.size() > limit.longest) {
            Report(offset, owner, std::string("has ") + limit.aWhat + TooLong(text, limit));
        }
    }

    void CheckCell(const PluginCell& cell) {
        const std::string owner = "cell " + Quoted(cell.name);
        CheckLength(cell.offset, owner, cell.name, kCellNameLimit);
        if (!cellNames.insert(ToUpper(cell.name)).second) {
            Report(cell.offset, owner, "has the name of another");
        }
        cellPlaces.emplace(cell.name, cell.offset);
        CheckCount(cell, owner);
        CheckRefs(cell, owner);
    }

    void CheckExterior(const PluginCell& cell) {
        const std::string owner = "outside (" + GridWords(cell) + ')';
        if (!exteriors.insert({cell.column, cell.row}).second) {
            Report(cell.offset, owner, "has the place of another");
        }
        CheckRefs(cell, owner);
    }

    void CheckRefs(const PluginCell& cell, const std::string& owner) {
        // Ordered: a table could be filled with numbers that all collide in it.
        std::set<std::uint32_t> numbers;
        for (const PluginRef& ref : cell.refs) {
            const std::string refOwner =
                owner + ", reference " + RefNumber(ref) + ' ' + Quoted(ref.id);
            if (!numbers.insert(ref.index).second) {
                Report(ref.offset, refOwner, "has the number of another");
            }
            CheckRef(ref, refOwner);
        }
    }

    void CheckCount(const PluginCell& cell, const std::string& owner) {
        // Other programs count only those that stand behind the number.
        const std::size_t behind = cell.refs.size() - cell.refsBeforeCount;
        if (cell.refCount && *cell.refCount != cell.refs.size() && *cell.refCount != behind) {
            Report(cell.offset,
                   owner,
                   "says " + Counted(*cell.refCount, "reference") + ", " +
                       std::to_string(cell.refs.size()) + " are there");
        }
    }

    void CheckRef(const PluginRef& ref, const std::string& owner) {
        placedIds.insert(ToUpper(ref.id));
        if (ref.deleted) {
            return;
        }
        CheckLength(ref.offset, owner, ref.id, kIdLimit);
        const std::uint32_t master = ref.index >> kMasterShift;
        if (master > file.header.masters.size()) {
            Report(ref.offset,
                   owner,
                   "belongs to master " + std::to_string(master) + " of " +
                       std::to_string(file.header.masters.size()));
        }
        if (IsContainerId(ref.id) && !index.HasContainer(ref.id)) {
            Report(ref.offset, owner, "is a container without a record");
        }
        if (ref.lock) {
            CheckLock(ref, *ref.lock, owner);
        }
        CheckPlace(ref, owner);
    }

    void CheckLock(const PluginRef& ref, const PluginLock& lock, const std::string& owner) {
        const std::int32_t level = lock.level.value_or(0);
        if (level < 0 || level > kMostLock) {
            Report(ref.offset,
                   owner,
                   "has a lock of level " + std::to_string(level) + ", outside " +
                       std::to_string(kLeastLock) + " to " + std::to_string(kMostLock));
        }
        if (IsForKeyAlone(lock)) {
            Report(ref.offset,
                   owner,
                   "has a key and no level of its lock: nothing but the key opens it" +
                       std::string(lock.trap.empty() ? "" : ", and the game forgets its trap"));
        }
        if (IsKeyId(lock.key) && !index.HasKey(lock.key)) {
            Report(ref.offset, owner, "is opened by " + Quoted(lock.key) + ", which has no record");
        }
    }

    // Who else could hold one is not read.
    bool IsAllThatHoldsRead() const {
        static constexpr const char* kHolders[] = {"NPC_", "CREA", "LEVI", "SCPT"};
        return file.complete && file.exteriorCells == 0 &&
               std::ranges::none_of(
                   kHolders, [this](const char* tag) { return file.otherRecords.contains(tag); });
    }

    void CheckKeys() {
        std::unordered_set<std::string> ids;
        for (const PluginKey& key : file.keys) {
            const std::string owner = "key " + Quoted(key.id);
            CheckLength(key.offset, owner, key.id, kIdLimit);
            if (!ids.insert(ToUpper(key.id)).second) {
                Report(key.offset, owner, "has the id of another");
            }
            const bool held =
                heldIds.contains(ToUpper(key.id)) || placedIds.contains(ToUpper(key.id));
            if (!key.deleted && !held && IsAllThatHoldsRead()) {
                Report(key.offset, owner, "lies in no container and in no cell");
            }
        }
    }

    void CheckPlace(const PluginRef& ref, const std::string& owner) {
        if (!IsFinite(ref.place.position) || !IsFinite(ref.place.rotation)) {
            Report(ref.offset, owner, "stands at no finite place");
        }
        // Written so that not-a-number is outside, too.
        if (!(ref.scale >= kSmallestScale && ref.scale <= kLargestScale)) {
            Report(ref.offset,
                   owner,
                   "has a scale of " + ExactNumber(ref.scale) + ", outside 0.5 to 2");
        }
        if (!ref.destination) {
            return;
        }
        const PluginPlace& arrival = ref.destination->arrival;
        if (!IsFinite(arrival.position) || !IsFinite(arrival.rotation)) {
            Report(ref.offset, owner, "leads to no finite place");
        }
        const std::string& cell = ref.destination->cell;
        if (!cell.empty() && !index.HasCell(cell)) {
            Report(ref.offset, owner, "leads to " + Quoted(cell) + ", not in this plug-in");
        }
    }

    void CheckContainer(const PluginContainer& container) {
        const std::string owner = "container " + Quoted(container.id);
        CheckLength(container.offset, owner, container.id, kIdLimit);
        if (!containerIds.insert(ToUpper(container.id)).second) {
            Report(container.offset, owner, "has the id of another");
        }
        if (container.deleted) {
            return;
        }
        if (!std::isfinite(container.capacity)) {
            Report(container.offset, owner, "has no finite capacity");
        }
        if ((container.flags & kContainerFlag) == 0) {
            Report(container.offset, owner, "lacks flag 8, which the game demands");
        }
        CheckItems(container, owner);
        // What stands in exteriors or behind the end of a cut file is not read.
        if (file.complete && file.exteriorCells == 0 &&
            !placedIds.contains(ToUpper(container.id))) {
            Report(container.offset, owner, "is placed in no cell");
        }
    }

    void CheckItems(const PluginContainer& container, const std::string& owner) {
        for (const PluginItem& item : container.items) {
            heldIds.insert(ToUpper(item.id));
            if (item.id.empty()) {
                Report(container.offset, owner, "holds an item without an id");
            } else if (item.id.size() > kIdLimit.longest) {
                Report(container.offset,
                       owner,
                       "holds " + Quoted(item.id) + ", an id" + TooLong(item.id, kIdLimit));
            }
        }
    }

    void CheckPathGrid(const PluginPathGrid& grid) {
        const std::string owner = "path grid " + Quoted(grid.cell);
        // One may be of a master's interior or, by another name, of the world outside.
        const auto cell = cellPlaces.find(grid.cell);
        if (cell == cellPlaces.end() && index.HasCell(grid.cell)) {
            Report(grid.offset, owner, "is spelt otherwise than its cell");
        } else if (cell != cellPlaces.end() && cell->second > grid.offset) {
            Report(grid.offset, owner, "stands before its cell");
        }
        const auto leadsOut = [&grid](const PathPoint& point) {
            return std::ranges::any_of(
                point.ways, [&grid](std::uint32_t to) { return to >= grid.points.size(); });
        };
        const auto point = std::ranges::find_if(grid.points, leadsOut);
        if (point != grid.points.end()) {
            Report(grid.offset,
                   owner,
                   "has a way from point " + std::to_string(point - grid.points.begin()) +
                       " to a point that is not there");
        }
    }

    const PluginFile& file;
    PluginIndex index;
    std::unordered_set<std::string> cellNames;
    std::unordered_map<std::string, std::uint64_t> cellPlaces; // in the file, by exact name
    std::set<std::pair<std::int32_t, std::int32_t>> exteriors; // by column and row
    std::unordered_set<std::string> containerIds;
    std::unordered_set<std::string> placedIds;
    std::unordered_set<std::string> heldIds;
    std::vector<PluginFinding> findings;
};

} // namespace

std::vector<PluginFinding> FindInconsistencies(const PluginFile& file) {
    return Checker(file).Run();
}

} // namespace Tarnex::Report
