// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginDiff.h"

#include "tools/plugins/PluginIndex.h"
#include "tools/plugins/RefMatch.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>

#include <array>
#include <map>
#include <optional>
#include <utility>

namespace Tarnex::Report {

namespace {

// What is said of a thing, in words: a label and a value each.
using Facts = std::vector<std::pair<std::string, std::string>>;

Facts FactsOf(const PluginHeader& header) {
    return {{"version", ExactNumber(header.version)},
            {"type", TypeWords(header.type)},
            {"author", Quoted(header.author)},
            {"description", Quoted(header.description)},
            {"number of records in the header", std::to_string(header.recordCount)}};
}

Facts FactsOf(const PluginContainer& container) {
    return {{"model", Quoted(container.model)},
            {"name", Quoted(container.name)},
            {"capacity", ExactNumber(container.capacity)},
            {"flags", std::to_string(container.flags)},
            {"deletion mark", container.deleted ? "set" : "not set"}};
}

Facts FactsOf(const PluginCell& cell) {
    return {{"name", Quoted(cell.name)},
            {"flags", std::to_string(cell.flags)},
            {"ambient light", ColorWords(cell.ambient)},
            {"sunlight", ColorWords(cell.sunlight)},
            {"fog colour", ColorWords(cell.fog)},
            {"fog density", ExactNumber(cell.fogDensity)},
            {"water height", ExactNumber(cell.waterHeight)},
            {"deletion mark", cell.deleted ? "set" : "not set"}};
}

// The number between "Ctr" and "_" that the identifiers of all of Vaultry's containers in the file
// share; none when they do not, or when there are none.
std::optional<std::string> StampOf(const PluginFile& file) {
    std::optional<std::string> common;
    for (const PluginContainer& container : file.containers) {
        if (IsContainerId(container.id)) {
            const std::string stamp = container.id.substr(3, container.id.find('_') - 3);
            if (common && *common != stamp) {
                return std::nullopt;
            }
            common = stamp;
        }
    }
    return common;
}

// The k-th of a name is matched with the k-th of the same name.
using NameKey = std::pair<std::string, std::size_t>;

template <typename T>
struct Keyed {
    std::vector<std::pair<NameKey, const T*>> entries; // in the order of the file
    std::map<NameKey, const T*> byKey;
};

template <typename T, typename KeyOf>
Keyed<T> ByKey(const std::vector<T>& list, const KeyOf& keyOf) {
    std::map<std::string, std::size_t> seen;
    Keyed<T> keyed;
    for (const T& entry : list) {
        const std::string name = keyOf(entry);
        const NameKey key(name, seen[name]++);
        keyed.entries.emplace_back(key, &entry);
        keyed.byKey.emplace(key, &entry);
    }
    return keyed;
}

class Comparison {
public:
    Comparison(const PluginFile& first, const PluginFile& second) : a(first), b(second) {}

    std::vector<Difference> Run();

private:
    void Add(std::string kind, std::string text) {
        differences.push_back({std::move(kind), subject, std::move(text)});
    }
    void AddFacts(const char* kind, const Facts& ofA, const Facts& ofB);
    void AddTags(const char* noun, const PluginTagCounts& ofA, const PluginTagCounts& ofB);

    // Calls `changed` for each pair of one key; reports what has no partner.
    template <typename T, typename KeyOf, typename Changed>
    void CompareLists(const std::string& noun,
                      const std::vector<T>& ofA,
                      const std::vector<T>& ofB,
                      const KeyOf& keyOf,
                      const Changed& changed);

    void CompareHeaders();
    void CompareMasters();
    void CompareStamps();
    void CompareContainers();
    void CompareItems(const PluginContainer& ofA, const PluginContainer& ofB);
    void CompareCells();
    void CompareRefs(const PluginCell& ofA, const PluginCell& ofB);
    void ComparePair(const PluginRef& ofA, const PluginRef& ofB);
    void CompareOrder(const std::vector<RefPair>& pairs);
    void CompareRest();

    // An identifier as it is compared: without regard to case and, where each file has a stamp of
    // its own, without that.
    std::string Key(const std::string& id) const {
        const bool unstamped = stampsDiffer && IsContainerId(id);
        return ToUpper(unstamped ? "Ctr" + id.substr(id.find('_')) : id);
    }

    const PluginFile& a;
    const PluginFile& b;
    bool stampsDiffer = false;
    std::string subject;
    std::vector<Difference> differences;
};

std::string NameOf(const PluginMaster& master) {
    return master.name;
}

std::string NameOf(const PluginCell& cell) {
    return cell.name;
}

std::string NameOf(const PluginContainer& container) {
    return container.id;
}

void Comparison::AddFacts(const char* kind, const Facts& ofA, const Facts& ofB) {
    for (std::size_t i = 0; i < ofA.size(); ++i) {
        if (ofA[i].second != ofB[i].second) {
            Add(kind, ofA[i].first + " is " + ofB[i].second + " instead of " + ofA[i].second);
        }
    }
}

void Comparison::AddTags(const char* noun, const PluginTagCounts& ofA, const PluginTagCounts& ofB) {
    PluginTagCounts all = ofA;
    all.insert(ofB.begin(), ofB.end());
    for (const auto& entry : all) {
        const auto countIn = [&entry](const PluginTagCounts& counts) {
            const auto found = counts.find(entry.first);
            return found == counts.end() ? 0 : found->second;
        };
        if (countIn(ofA) != countIn(ofB)) {
            Add("other",
                Counted(countIn(ofB), noun) + " of " + entry.first + " instead of " +
                    std::to_string(countIn(ofA)));
        }
    }
}

template <typename T, typename KeyOf, typename Changed>
void Comparison::CompareLists(const std::string& noun,
                              const std::vector<T>& ofA,
                              const std::vector<T>& ofB,
                              const KeyOf& keyOf,
                              const Changed& changed) {
    const Keyed<T> keyedOfA = ByKey(ofA, keyOf);
    const Keyed<T> keyedOfB = ByKey(ofB, keyOf);
    const auto setSubject = [&](const T& entry) { subject = noun + ' ' + Quoted(NameOf(entry)); };
    for (const auto& [key, entry] : keyedOfA.entries) {
        const auto partner = keyedOfB.byKey.find(key);
        setSubject(*entry);
        if (partner == keyedOfB.byKey.end()) {
            Add(noun + "-removed", "is missing");
        } else {
            changed(*entry, *partner->second);
        }
    }
    for (const auto& [key, entry] : keyedOfB.entries) {
        if (!keyedOfA.byKey.contains(key)) {
            setSubject(*entry);
            Add(noun + "-added", "is new");
        }
    }
}

void Comparison::CompareMasters() {
    const auto keyOf = [](const PluginMaster& master) { return ToUpper(master.name); };
    CompareLists("master",
                 a.header.masters,
                 b.header.masters,
                 keyOf,
                 [this](const PluginMaster& ofA, const PluginMaster& ofB) {
                     if (ofA.size != ofB.size) {
                         Add("master-changed",
                             "has " + Counted(ofB.size, "byte") + " instead of " +
                                 std::to_string(ofA.size));
                     }
                 });
}

void Comparison::CompareHeaders() {
    subject = "header";
    AddFacts("header-changed", FactsOf(a.header), FactsOf(b.header));
    CompareMasters();
}

void Comparison::CompareStamps() {
    const std::optional<std::string> ofA = StampOf(a);
    const std::optional<std::string> ofB = StampOf(b);
    stampsDiffer = ofA && ofB && ofA != ofB;
    if (stampsDiffer) {
        subject = "containers";
        Add("stamp", "their ids begin with Ctr" + *ofB + "_ instead of Ctr" + *ofA + '_');
    }
}

void Comparison::CompareItems(const PluginContainer& ofA, const PluginContainer& ofB) {
    struct Sum {
        std::string id;
        std::int64_t ofA = 0;
        std::int64_t ofB = 0;
    };
    std::map<std::string, Sum> sums;
    const auto sumOf = [&sums](const PluginItem& item) -> Sum& {
        Sum& sum = sums[ToUpper(item.id)];
        sum.id = item.id;
        return sum;
    };
    for (const PluginItem& item : ofA.items) {
        sumOf(item).ofA += item.count;
    }
    for (const PluginItem& item : ofB.items) {
        sumOf(item).ofB += item.count;
    }
    const std::size_t before = differences.size();
    for (const auto& entry : sums) {
        const Sum& sum = entry.second;
        if (sum.ofA != sum.ofB) {
            Add("items-changed",
                "holds " + std::to_string(sum.ofB) + ' ' + Quoted(sum.id) + " instead of " +
                    std::to_string(sum.ofA));
        }
    }
    if (differences.size() == before && ofA.items.size() != ofB.items.size()) {
        Add("items-changed",
            "holds the same in " + Counted(ofB.items.size(), "stack") + " instead of " +
                std::to_string(ofA.items.size()));
    }
}

void Comparison::CompareContainers() {
    const auto keyOf = [this](const PluginContainer& container) { return Key(container.id); };
    CompareLists("container",
                 a.containers,
                 b.containers,
                 keyOf,
                 [this](const PluginContainer& ofA, const PluginContainer& ofB) {
                     AddFacts("container-changed", FactsOf(ofA), FactsOf(ofB));
                     CompareItems(ofA, ofB);
                 });
}

std::string TurnWords(const Di3Point& from, const Di3Point& to) {
    struct Axis {
        const char* name;
        float from;
        float to;
    };
    const std::array<Axis, 3> axes = {
        Axis{"x", from.x, to.x}, Axis{"y", from.y, to.y}, Axis{"z", from.z, to.z}};
    std::string text = "turned";
    for (const Axis& axis : axes) {
        if (SameNumber(axis.from, axis.to)) {
            continue;
        }
        const std::string before = Number(Degrees(axis.from));
        const std::string after = Number(Degrees(axis.to));
        text += text == "turned" ? " about " : " and about ";
        text += axis.name;
        const bool exact = before == after; // too little for degrees to show
        text.append(" from ").append(exact ? ExactNumber(axis.from) : before);
        text.append(" to ").append(exact ? ExactNumber(axis.to) : after);
        text.append(exact ? " radians" : " degrees");
    }
    return text;
}

std::string LeadWords(const PluginRef& ref) {
    if (!ref.destination) {
        return "nowhere";
    }
    const auto& [cell, arrival] = *ref.destination;
    return "to " + (cell.empty() ? "the outside" : Quoted(cell)) + " at " +
           PointWords(arrival.position) + " facing " + Number(Degrees(arrival.rotation.z));
}

void Comparison::ComparePair(const PluginRef& ofA, const PluginRef& ofB) {
    const PluginPlace& from = ofA.place;
    const PluginPlace& to = ofB.place;
    const std::string where = Quoted(ofB.id) + " at " + PointWords(to.position) + ' ';
    if (!SamePoint(from.position, to.position)) {
        Add("reference-moved",
            Quoted(ofB.id) + " moved from " + PointWords(from.position) + " to " +
                PointWords(to.position));
    }
    if (!SamePoint(from.rotation, to.rotation)) {
        Add("reference-turned", where + TurnWords(from.rotation, to.rotation));
    }
    if (!SameNumber(ofA.scale, ofB.scale)) {
        Add("reference-rescaled",
            where + "scaled from " + ExactNumber(ofA.scale) + " to " + ExactNumber(ofB.scale));
    }
    if (!SameDestination(ofA, ofB)) {
        Add("reference-retargeted",
            where + "leads " + LeadWords(ofB) + " instead of " + LeadWords(ofA));
    }
    if (ofA.deleted != ofB.deleted) {
        Add("reference-deleted", where + (ofB.deleted ? "deleted" : "no longer deleted"));
    }
}

void Comparison::CompareOrder(const std::vector<RefPair>& pairs) {
    const PluginRef* last = nullptr;
    for (const RefPair& pair : pairs) {
        if (last != nullptr && pair.b < last) {
            Add("order", "its references stand in another order");
            return;
        }
        last = pair.b;
    }
}

void Comparison::CompareRefs(const PluginCell& ofA, const PluginCell& ofB) {
    const RefKey keyOf = [this](const PluginRef& ref) { return Key(ref.id); };
    const std::vector<RefPair> pairs = MatchRefs(ofA.refs, ofB.refs, keyOf);
    const std::size_t before = differences.size();
    for (const auto& [refOfA, refOfB] : pairs) {
        if (refOfB == nullptr) {
            Add("reference-removed",
                Quoted(refOfA->id) + " removed from " + PointWords(refOfA->place.position));
        } else if (refOfA == nullptr) {
            Add("reference-added",
                Quoted(refOfB->id) + " added at " + PointWords(refOfB->place.position));
        } else {
            ComparePair(*refOfA, *refOfB);
        }
    }
    if (differences.size() == before) {
        CompareOrder(pairs);
    }
}

void Comparison::CompareCells() {
    const auto keyOf = [](const PluginCell& cell) { return ToUpper(cell.name); };
    CompareLists(
        "cell", a.cells, b.cells, keyOf, [this](const PluginCell& ofA, const PluginCell& ofB) {
            AddFacts("cell-changed", FactsOf(ofA), FactsOf(ofB));
            CompareRefs(ofA, ofB);
        });
}

void Comparison::CompareRest() {
    subject = "file";
    if (a.exteriorCells != b.exteriorCells) {
        Add("other",
            Counted(b.exteriorCells, "exterior cell") + " instead of " +
                std::to_string(a.exteriorCells));
    }
    AddTags("record", a.otherRecords, b.otherRecords);
    AddTags("sub-record", a.skippedSubRecords, b.skippedSubRecords);
}

std::vector<Difference> Comparison::Run() {
    CompareHeaders();
    CompareStamps();
    CompareContainers();
    CompareCells();
    CompareRest();
    return std::move(differences);
}

} // namespace

std::vector<Difference> ComparePlugins(const PluginFile& a, const PluginFile& b) {
    return Comparison(a, b).Run();
}

} // namespace Tarnex::Report
