// SPDX-License-Identifier: MIT
// A front end in one file: generates a dungeon of three levels and shows how far it is.
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenMgr.h>

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
    manager.SetDefaultCreatureTheme("Undead");

    Tarnex::RandomGenInfo random;
    random.numLevels = 3;
    random.levelSize = Tarnex::RandomGenInfo::Small;
    manager.SetRandomInfo(random);

    Progress progress(random.numLevels);
    manager.SetJobStatus(&progress);
    Tarnex::SeedRandom(7); // the same seed, the same dungeon
    const Tarnex::ModResult result = manager.CreateMod(out.c_str(), "Embedded", false);
    for (const std::string& error : Tarnex::Logger::GetErrors()) {
        std::cerr << error << '\n';
    }
    if (result != Tarnex::ModResult::Written) {
        return EXIT_FAILURE;
    }
    PrintLevels(manager.report);
    return EXIT_SUCCESS;
}
