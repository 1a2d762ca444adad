// SPDX-License-Identifier: MIT
#include "tools/plugins/PluginDiff.h"

#include "tools/plugins/LockWords.h"
#include "tools/plugins/PluginIndex.h"
#include "tools/plugins/RefMatch.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>

#include <array>
#include <functional>
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

Facts FactsOf(const PluginKey& key) {
    return {{"name", Quoted(key.name)},
            {"model", Quoted(key.model)},
            {"icon", Quoted(key.icon)},
            {"weight", ExactNumber(key.weight)},
            {"value", std::to_string(key.worth)},
            {"deletion mark", key.deleted ? "set" : "not set"}};
}

Facts FactsOf(const PluginCell& cell) {
    return {{"name", Quoted(cell.name)},
            {"flags", std::to_string(cell.flags)},
            {"ambient light", ColorWords(cell.ambient)},
            {"sunlight", ColorWords(cell.sunlight)},
            {"fog colour", ColorWords(cell.fog)},
            {"fog density", ExactNumber(cell.fogDensity)},
            {"water height", ExactNumber(cell.waterHeight)},
            {"region", Quoted(cell.region)},
            {"deletion mark", cell.deleted ? "set" : "not set"}};
}

Facts FactsOfExterior(const PluginCell& cell) {
    return {{"name", Quoted(cell.name)},
            {"flags", std::to_string(cell.flags)},
            {"region", Quoted(cell.region)},
            {"deletion mark", cell.deleted ? "set" : "not set"}};
}

Facts FactsOf(const PluginPathGrid& grid) {
    return {{"name", Quoted(grid.cell)},
            {"number of points", std::to_string(grid.points.size())},
            {"number of ways", std::to_string(CountWays(grid))}};
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

template <typename T, typename NameOf, typename KeyOf>
Keyed<T> ByKey(const std::vector<T>& list, const NameOf& nameOf, const KeyOf& keyOf) {
    std::map<std::string, std::size_t> seen;
    Keyed<T> keyed;
    for (const T& entry : list) {
        const std::string name = keyOf(std::invoke(nameOf, entry));
        const NameKey key(name, seen[name]++);
        keyed.entries.emplace_back(key, &entry);
        keyed.byKey.emplace(key, &entry);
    }
    return keyed;
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

std::string LockOrNone(const std::optional<PluginLock>& lock) {
    const std::string words = LockWords(lock);
    return words.empty() ? "without a lock" : words;
}

class Comparison {
public:
    Comparison(const PluginFile& first, const PluginFile& second) : a(first), b(second) {}

    std::vector<Difference> Run() {
        CompareHeaders();
        CompareStamps();
        CompareKeys();
        CompareContainers();
        CompareCells();
        CompareExteriors();
        ComparePathGrids();
        CompareRest();
        return std::move(differences);
    }

private:
    void Add(std::string kind, std::string text) {
        differences.push_back({std::move(kind), subject, std::move(text)});
    }

    void AddChange(std::string kind, const std::string& now, const std::string& before) {
        Add(std::move(kind), now + " instead of " + before);
    }

    void AddFacts(const char* kind, const Facts& ofA, const Facts& ofB) {
        for (std::size_t i = 0; i < ofA.size(); ++i) {
            if (ofA[i].second != ofB[i].second) {
                AddChange(kind, ofA[i].first + " is " + ofB[i].second, ofA[i].second);
            }
        }
    }

    void AddTags(const char* noun, PluginTagCounts ofA, PluginTagCounts ofB) {
        PluginTagCounts all = ofA;
        all.insert(ofB.begin(), ofB.end());
        for (const auto& [tag, count] : all) {
            if (ofA[tag] != ofB[tag]) {
                AddChange(
                    "other", Counted(ofB[tag], noun) + " of " + tag, std::to_string(ofA[tag]));
            }
        }
    }

    // Calls `changed` for each pair of one key; reports what has no partner.
    template <typename T, typename NameOf, typename KeyOf, typename Changed>
    void CompareLists(const std::string& noun,
                      const std::vector<T>& ofA,
                      const std::vector<T>& ofB,
                      const NameOf& nameOf,
                      const KeyOf& keyOf,
                      const Changed& changed) {
        const Keyed<T> keyedOfA = ByKey(ofA, nameOf, keyOf);
        const Keyed<T> keyedOfB = ByKey(ofB, nameOf, keyOf);
        const auto setSubject = [&](const T& entry) {
            subject = noun + ' ' + Quoted(std::invoke(nameOf, entry));
        };
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

    void CompareHeaders() {
        subject = "header";
        AddFacts("header-changed", FactsOf(a.header), FactsOf(b.header));
        CompareMasters();
    }

    void CompareMasters() {
        CompareLists("master",
                     a.header.masters,
                     b.header.masters,
                     &PluginMaster::name,
                     ToUpper,
                     [this](const PluginMaster& ofA, const PluginMaster& ofB) {
                         if (ofA.size != ofB.size) {
                             AddChange("master-changed",
                                       "has " + Counted(ofB.size, "byte"),
                                       std::to_string(ofA.size));
                         }
                     });
    }

    void CompareStamps() {
        const std::optional<std::string> ofA = StampOf(a);
        const std::optional<std::string> ofB = StampOf(b);
        stampsDiffer = ofA && ofB && ofA != ofB;
        if (stampsDiffer) {
            subject = "containers";
            AddChange("stamp", "their ids begin with Ctr" + *ofB + '_', "Ctr" + *ofA + '_');
        }
    }

    void CompareKeys() {
        CompareLists(
            "key",
            a.keys,
            b.keys,
            &PluginKey::id,
            [this](const std::string& id) { return Key(id); },
            [this](const PluginKey& ofA, const PluginKey& ofB) {
                AddFacts("key-changed", FactsOf(ofA), FactsOf(ofB));
            });
    }

    void CompareContainers() {
        CompareLists(
            "container",
            a.containers,
            b.containers,
            &PluginContainer::id,
            [this](const std::string& id) { return Key(id); },
            [this](const PluginContainer& ofA, const PluginContainer& ofB) {
                AddFacts("container-changed", FactsOf(ofA), FactsOf(ofB));
                CompareItems(ofA, ofB);
            });
    }

    void CompareItems(const PluginContainer& ofA, const PluginContainer& ofB) {
        struct Sum {
            std::string id;
            std::int64_t ofA = 0;
            std::int64_t ofB = 0;
        };
        std::map<std::string, Sum> sums;
        const auto sumOf = [this, &sums](const PluginItem& item) -> Sum& {
            Sum& sum = sums[Key(item.id)];
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
                AddChange("items-changed",
                          "holds " + std::to_string(sum.ofB) + ' ' + Quoted(sum.id),
                          std::to_string(sum.ofA));
            }
        }
        if (differences.size() == before && ofA.items.size() != ofB.items.size()) {
            AddChange("items-changed",
                      "holds the same in " + Counted(ofB.items.size(), "stack"),
                      std::to_string(ofA.items.size()));
        }
    }

    void CompareCells() {
        CompareLists("cell",
                     a.cells,
                     b.cells,
                     &PluginCell::name,
                     ToUpper,
                     [this](const PluginCell& ofA, const PluginCell& ofB) {
                         AddFacts("cell-changed", FactsOf(ofA), FactsOf(ofB));
                         CompareRefs(ofA, ofB);
                     });
    }

    void CompareExteriors() {
        CompareLists("exterior",
                     a.exteriors,
                     b.exteriors,
                     GridWords,
                     ToUpper,
                     [this](const PluginCell& ofA, const PluginCell& ofB) {
                         AddFacts("exterior-changed", FactsOfExterior(ofA), FactsOfExterior(ofB));
                         CompareRefs(ofA, ofB);
                     });
    }

    void ComparePathGrids() {
        CompareLists("path-grid",
                     a.pathGrids,
                     b.pathGrids,
                     &PluginPathGrid::cell,
                     ToUpper,
                     [this](const PluginPathGrid& ofA, const PluginPathGrid& ofB) {
                         const std::size_t before = differences.size();
                         AddFacts("path-grid-changed", FactsOf(ofA), FactsOf(ofB));
                         if (differences.size() == before && ofA.points != ofB.points) {
                             Add("path-grid-changed", "has as many points and ways, but others");
                         }
                     });
    }

    void CompareRefs(const PluginCell& ofA, const PluginCell& ofB) {
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

    void ComparePair(const PluginRef& ofA, const PluginRef& ofB) {
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
            AddChange("reference-retargeted", where + "leads " + LeadWords(ofB), LeadWords(ofA));
        }
        if (!SameLock(ofA.lock, ofB.lock)) {
            AddChange("reference-locked", where + LockOrNone(ofB.lock), LockOrNone(ofA.lock));
        }
        if (ofA.deleted != ofB.deleted) {
            Add("reference-deleted", where + (ofB.deleted ? "deleted" : "no longer deleted"));
        }
    }

    bool SameLock(const std::optional<PluginLock>& ofA,
                  const std::optional<PluginLock>& ofB) const {
        if (!ofA || !ofB) {
            return !ofA && !ofB;
        }
        return ofA->level == ofB->level && Key(ofA->key) == Key(ofB->key) &&
               EqualsNoCase(ofA->trap, ofB->trap);
    }

    void CompareOrder(const std::vector<RefPair>& pairs) {
        const PluginRef* last = nullptr;
        for (const RefPair& pair : pairs) {
            if (last != nullptr && pair.b < last) {
                Add("order", "its references stand in another order");
                return;
            }
            last = pair.b;
        }
    }

    void CompareRest() {
        subject = "file";
        if (UnreadExteriors(a) != UnreadExteriors(b)) {
            AddChange("other",
                      Counted(UnreadExteriors(b), "exterior cell"),
                      std::to_string(UnreadExteriors(a)));
        }
        AddTags("record", a.otherRecords, b.otherRecords);
        AddTags("sub-record", a.skippedSubRecords, b.skippedSubRecords);
    }

    // An identifier as it is compared: without regard to case and, where each file has a stamp of
    // its own, without that.
    std::string Key(const std::string& id) const {
        const bool unstamped = stampsDiffer && (IsContainerId(id) || IsKeyId(id));
        return ToUpper(unstamped ? id.substr(0, 3) + id.substr(id.find('_')) : id);
    }

    const PluginFile& a;
    const PluginFile& b;
    bool stampsDiffer = false;
    std::string subject;
    std::vector<Difference> differences;
};

} // namespace

std::vector<Difference> ComparePlugins(const PluginFile& a, const PluginFile& b) {
    return Comparison(a, b).Run();
}

} // namespace Tarnex::Report
