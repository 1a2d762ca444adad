// SPDX-License-Identifier: MIT
// The cost of a level, stage by stage.
#include "StageTimer.h"

#include <vaultry/foundation/Random.h>

#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <sstream>

namespace Tarnex::Bench {

namespace {

constexpr std::array<const char*, 5> kSizes = {"random", "tiny", "small", "medium", "large"};

// What is made larger by a factor.
constexpr Scenario kScaled = {"vaultry.xml", nullptr, false, RandomGenInfo::Medium};

// Arguments: 0 rooms or 1 caves, then the level size.
Scenario ScenarioOf(const benchmark::State& state) {
    const auto size = static_cast<RandomGenInfo::LevelSizeT>(state.range(1));
    if (state.range(0) == 0) {
        return {"vaultry.xml", nullptr, false, size};
    }
    return {"caves.xml", "Mold cave tunnels", true, size};
}

void Label(benchmark::State& state) {
    const char* kind = state.range(0) == 0 ? "rooms " : "caves ";
    state.SetLabel(std::string(kind) + kSizes[static_cast<std::size_t>(state.range(1))]);
}

// A different level every time, the same ones in every run of the program.
class Seeds {
public:
    void Next() { SeedRandom(seed += 2654435769U); }

private:
    std::uint32_t seed = 1;
};

DiPtr<Layout> NextLevel(Stages& stages, Seeds& seeds) {
    DiPtr<Layout> level;
    while (!level) {
        seeds.Next();
        level = stages.LayOut();
    }
    return level;
}

void Layout_(benchmark::State& state) {
    GenMgr mgr;
    Prepare(mgr, ScenarioOf(state));
    Stages stages(mgr);
    Seeds seeds;
    for (auto _ : state) {
        seeds.Next();
        const DiPtr<Layout> level = stages.LayOut();
        if (level) {
            level->Dissolve();
        }
    }
    Label(state);
}

void Content(benchmark::State& state) {
    GenMgr mgr;
    Prepare(mgr, ScenarioOf(state));
    Stages stages(mgr);
    Seeds seeds;
    for (auto _ : state) {
        state.PauseTiming();
        const DiPtr<Layout> level = NextLevel(stages, seeds);
        state.ResumeTiming();
        stages.Furnish(*level);
        state.PauseTiming();
        level->Dissolve();
        state.ResumeTiming();
    }
    Label(state);
}

void Conversion(benchmark::State& state) {
    GenMgr mgr;
    Prepare(mgr, ScenarioOf(state));
    Stages stages(mgr);
    Seeds seeds;
    for (auto _ : state) {
        state.PauseTiming();
        const DiPtr<Layout> level = NextLevel(stages, seeds);
        stages.Furnish(*level);
        state.ResumeTiming();
        stages.Convert(*level);
        state.PauseTiming();
        level->Dissolve();
        state.ResumeTiming();
    }
    Label(state);
}

void WriteToMemory(benchmark::State& state) {
    GenMgr mgr;
    Prepare(mgr, ScenarioOf(state));
    Seeds seeds;
    seeds.Next();
    mgr.Generate("Bench", false);
    std::int64_t bytes = 0;
    for (auto _ : state) {
        std::ostringstream stream;
        mgr.mod.Write(stream);
        bytes += static_cast<std::int64_t>(stream.tellp());
    }
    state.SetBytesProcessed(bytes);
    Label(state);
}

// Everything but the file: laid out, furnished, converted and written to memory.
void WholeLevel(benchmark::State& state) {
    GenMgr mgr;
    Prepare(mgr, ScenarioOf(state));
    Seeds seeds;
    std::ostringstream stream;
    for (auto _ : state) {
        seeds.Next();
        mgr.Generate("Bench", false);
        stream.seekp(0);
        mgr.mod.Write(stream);
    }
    Label(state);
}

void CreateModToFile(benchmark::State& state) {
    GenMgr mgr;
    Prepare(mgr, ScenarioOf(state));
    Seeds seeds;
    const auto file = std::filesystem::temp_directory_path() / "vaultry-bench.esp";
    for (auto _ : state) {
        seeds.Next();
        mgr.CreateMod(file.string().c_str(), "Bench", false);
    }
    std::filesystem::remove(file);
    Label(state);
}

// On room grids 1 to 8 times as wide and high, a different level every time.
template <typename Step>
void ByArea(benchmark::State& state, const Step& step) {
    GenMgr mgr;
    Prepare(mgr, kScaled);
    Stages stages(mgr);
    Seeds seeds;
    const auto factor = static_cast<std::int32_t>(state.range(0));
    for (auto _ : state) {
        seeds.Next();
        step(stages, factor);
    }
    state.SetComplexityN(state.range(0) * state.range(0));
}

// Rooms alone: the time must grow as the area does.
void PlaceByArea(benchmark::State& state) {
    ByArea(state,
           [](Stages& stages, std::int32_t factor) { stages.PlaceScaled(factor)->Dissolve(); });
}

// Halls alone. In order, they are as long as a room and, once per row, as the level is wide, and
// the time must grow as the area does; shuffled, all of them grow with the width of the level.
void JoinByArea(benchmark::State& state, Ring ring) {
    ByArea(state, [&state, ring](Stages& stages, std::int32_t factor) {
        state.PauseTiming();
        const DiPtr<Layout> level = stages.PlaceScaled(factor);
        state.ResumeTiming();
        stages.JoinScaled(*level, ring);
        state.PauseTiming();
        level->Dissolve();
        state.ResumeTiming();
    });
}

void Scales(benchmark::internal::Benchmark* b) {
    b->RangeMultiplier(2)->Range(1, 8)->Unit(benchmark::kMicrosecond);
}

void KindsAndSizes(benchmark::internal::Benchmark* b) {
    for (const int kind : {0, 1}) {
        for (const int size : {1, 2, 3, 4}) {
            b->Args({kind, size});
        }
    }
}

BENCHMARK(Layout_)->Name("Layout")->Apply(KindsAndSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(Content)->Apply(KindsAndSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(Conversion)->Apply(KindsAndSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteToMemory)->Apply(KindsAndSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(WholeLevel)->Apply(KindsAndSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(CreateModToFile)->Apply(KindsAndSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(PlaceByArea)->Apply(Scales)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(JoinByArea, in order, Ring::InOrder)->Apply(Scales)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(JoinByArea, shuffled, Ring::Shuffled)->Apply(Scales)->Complexity();

} // namespace

} // namespace Tarnex::Bench
