// SPDX-License-Identifier: MIT
// A front end in one file: generates a dungeon of three levels and shows how far it is.
#include <vaultry/foundation/Logger.h>
#include <vaultry/run/Run.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace {

// Prints each step of a run. A window would move its bar, and answer HasBeenCanceled by its button.
class Progress : public Tarnex::JobStatus {
public:
    explicit Progress(std::uint32_t levels) : steps(levels) {}

    void SetText(const std::string& text) override { std::cout << text << '\n'; }
    void StepIt() override {
        JobStatus::StepIt();
        std::cout << "  step " << GetPos() << " of " << steps << '\n';
    }

private:
    std::uint32_t steps;
};

void PrintLevels(const Tarnex::GenReport& report) {
    for (const Tarnex::LevelReport& level : report.levels) {
        std::cout << "level " << level.number << ": " << level.ReachableRooms() << " of "
                  << level.rooms.size() << " rooms can be reached\n";
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::string out = argc > 1 ? argv[1] : "embedded.esp";
    Tarnex::Logger::InitWithoutFile();
    Tarnex::GenMgr manager;
    manager.Init(DATA_DIR "/vaultry.xml");

    Tarnex::RunOptions options;
    options.cell = "Embedded";
    options.creatureTheme = "Undead";
    options.numLevels = 3;
    options.levelSize = Tarnex::RandomGenInfo::Small;
    options.seed = 7; // the same seed, the same dungeon

    Progress progress(options.numLevels);
    manager.SetJobStatus(&progress);
    const Tarnex::RunResult result = Tarnex::Run(manager, options).Generate();
    for (const std::string& error : Tarnex::ErrorLines(result.problems)) {
        std::cerr << error << '\n';
    }
    if (result.end != Tarnex::RunEnd::Made ||
        manager.WriteMod(out.c_str()) != Tarnex::ModResult::Written) {
        return EXIT_FAILURE;
    }
    PrintLevels(result.levels);
    return EXIT_SUCCESS;
}
