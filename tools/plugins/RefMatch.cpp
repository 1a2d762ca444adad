// SPDX-License-Identifier: MIT
#include "tools/plugins/RefMatch.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <unordered_map>

namespace Tarnex::Report {

namespace {

// The bits of a number; equal numbers have equal ones.
std::uint32_t Bits(float value) {
    if (value != value) {
        return std::bit_cast<std::uint32_t>(std::numeric_limits<float>::quiet_NaN());
    }
    return std::bit_cast<std::uint32_t>(value == 0.0F ? 0.0F : value);
}

using Words = std::vector<std::uint32_t>;

void Append(Words& words, const Di3Point& point) {
    for (const float number : {point.x, point.y, point.z}) {
        words.push_back(Bits(number));
    }
}

void Append(Words& words, const std::string& text) {
    words.push_back(static_cast<std::uint32_t>(text.size()));
    for (const char c : text) {
        words.push_back(static_cast<unsigned char>(c));
    }
}

Words PositionWords(const PluginRef& ref) {
    Words words;
    Append(words, ref.place.position);
    return words;
}

// All that a reference says beside its number and its object.
Words WholeWords(const PluginRef& ref) {
    Words words = PositionWords(ref);
    Append(words, ref.place.rotation);
    words.push_back(Bits(ref.scale));
    words.push_back(ref.deleted ? 1 : 0);
    if (ref.destination) {
        Append(words, ref.destination->arrival.position);
        Append(words, ref.destination->arrival.rotation);
        Append(words, ref.destination->cell);
    }
    if (ref.lock) {
        words.push_back(static_cast<std::uint32_t>(ref.lock->level.value_or(-1)));
        Append(words, ref.lock->key);
        Append(words, ref.lock->trap);
    }
    return words;
}

double SquaredDistance(const Di3Point& a, const Di3Point& b) {
    const double x = double{a.x} - b.x;
    const double y = double{a.y} - b.y;
    const double z = double{a.z} - b.z;
    return x * x + y * y + z * z;
}

// The references of one object that have no partner yet, each by its place in its cell.
struct Group {
    std::vector<std::size_t> a;
    std::vector<std::size_t> b;
};

class Matcher {
public:
    Matcher(const std::vector<PluginRef>& refsOfA, const std::vector<PluginRef>& refsOfB)
        : a(refsOfA), b(refsOfB), partners(refsOfA.size(), kNone), taken(refsOfB.size()) {}

    void Match(Group& group) {
        PairEqual(group, WholeWords);
        PairEqual(group, PositionWords);
        PairNearest(group);
    }

    std::vector<RefPair> Pairs() const {
        std::vector<RefPair> pairs;
        for (std::size_t i = 0; i < a.size(); ++i) {
            pairs.push_back({&a[i], partners[i] == kNone ? nullptr : &b[partners[i]]});
        }
        for (std::size_t i = 0; i < b.size(); ++i) {
            if (!taken[i]) {
                pairs.push_back({nullptr, &b[i]});
            }
        }
        return pairs;
    }

private:
    static constexpr std::size_t kNone = ~std::size_t{0};

    void Pair(std::size_t ofA, std::size_t ofB) {
        partners[ofA] = ofB;
        taken[ofB] = true;
    }
    void DropPaired(Group& group) {
        std::erase_if(group.a, [this](std::size_t i) { return partners[i] != kNone; });
        std::erase_if(group.b, [this](std::size_t i) { return taken[i]; });
    }

    void PairEqual(Group& group, Words (*wordsOf)(const PluginRef&)) {
        const auto sorted = [wordsOf](const std::vector<std::size_t>& places,
                                      const std::vector<PluginRef>& refs) {
            std::vector<std::pair<Words, std::size_t>> entries;
            entries.reserve(places.size());
            for (const std::size_t place : places) {
                entries.emplace_back(wordsOf(refs[place]), place);
            }
            std::ranges::sort(entries);
            return entries;
        };
        const auto ofA = sorted(group.a, a);
        const auto ofB = sorted(group.b, b);
        auto next = ofB.begin();
        for (const auto& [words, place] : ofA) {
            while (next != ofB.end() && next->first < words) {
                ++next;
            }
            if (next != ofB.end() && next->first == words) {
                Pair(place, next->second);
                ++next;
            }
        }
        DropPaired(group);
    }

    // To look at every pair would take a plug-in made for it hours.
    void PairNearest(Group& group) {
        const auto later =
            group.b.begin() + static_cast<std::ptrdiff_t>(std::min(group.b.size(), kMostCompared));
        std::vector<std::size_t> candidates(group.b.begin(), later);
        std::size_t next = candidates.size();
        for (const std::size_t place : group.a) {
            if (candidates.empty()) {
                return;
            }
            const auto nearest =
                candidates.begin() + NearestOf(candidates, a[place].place.position);
            Pair(place, *nearest);
            candidates.erase(nearest);
            if (next < group.b.size()) {
                candidates.push_back(group.b[next++]);
            }
        }
    }

    // Of equally near ones the first; what has no place is never nearer.
    std::ptrdiff_t NearestOf(const std::vector<std::size_t>& candidates,
                             const Di3Point& position) const {
        std::size_t nearest = 0;
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            const double distance = SquaredDistance(b[candidates[i]].place.position, position);
            if (distance < least) {
                least = distance;
                nearest = i;
            }
        }
        return static_cast<std::ptrdiff_t>(nearest);
    }

    const std::vector<PluginRef>& a;
    const std::vector<PluginRef>& b;
    std::vector<std::size_t> partners; // of each of a, its place in b
    std::vector<bool> taken;           // of each of b
};

} // namespace

std::vector<RefPair>
MatchRefs(const std::vector<PluginRef>& a, const std::vector<PluginRef>& b, const RefKey& keyOf) {
    std::unordered_map<std::string, Group> groups;
    for (std::size_t i = 0; i < a.size(); ++i) {
        groups[keyOf(a[i])].a.push_back(i);
    }
    for (std::size_t i = 0; i < b.size(); ++i) {
        groups[keyOf(b[i])].b.push_back(i);
    }
    Matcher matcher(a, b);
    for (auto& entry : groups) {
        matcher.Match(entry.second);
    }
    return matcher.Pairs();
}

bool SameNumber(float a, float b) {
    return Bits(a) == Bits(b);
}

bool SamePoint(const Di3Point& a, const Di3Point& b) {
    return SameNumber(a.x, b.x) && SameNumber(a.y, b.y) && SameNumber(a.z, b.z);
}

bool SameDestination(const PluginRef& a, const PluginRef& b) {
    if (!a.destination || !b.destination) {
        return a.destination.has_value() == b.destination.has_value();
    }
    return a.destination->cell == b.destination->cell &&
           SamePoint(a.destination->arrival.position, b.destination->arrival.position) &&
           SamePoint(a.destination->arrival.rotation, b.destination->arrival.rotation);
}

} // namespace Tarnex::Report
