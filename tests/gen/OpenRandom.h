// SPDX-License-Identifier: MIT
// Random interiors with all their stages in reach.
#pragma once

#include <vaultry/gen/GenIntRandom.h>

#include <functional>
#include <string>
#include <tests/gen/GenTest.h>
#include <vector>

namespace Tarnex::Test {

/// The generator, with what is protected published.
class OpenRandom : public GenIntRandom {
public:
    using GenIntRandom::GenIntRandom;

    using GenIntBase::containers;
    using GenIntBase::tileSet;

    using GenIntRandom::CreateFromUserLayout;
    using GenIntRandom::CreateRoom;
    using GenIntRandom::CreateRooms;
    using GenIntRandom::FilterThemes;
    using GenIntRandom::InitRandomThemes;
    using GenIntRandom::InitRandomTileSet;
    using GenIntRandom::InitRoomGridSize;
    using GenIntRandom::LayoutRoom;
    using GenIntRandom::PlaceRooms;
    using GenIntRandom::SpaceRooms;

    using GenIntRandom::AddTeleDoor;
    using GenIntRandom::AddTeleportingDoors;
    using GenIntRandom::FindElmt;
    using GenIntRandom::Levels;
    using GenIntRandom::RemoveExteriorDoors;

    /// One level, without its report.
    DiPtr<Layout> MainLayout(const DiPos& grid) {
        LevelReport report;
        return InitMainLayout(grid, report);
    }
    /// Carves the halls of a level; false when its rooms could not be joined.
    bool Connect(Layout& main, RoomInfo& rooms) {
        LevelReport report;
        return ConnectRooms(main, rooms, report);
    }
};

/// Notes what a run reports and cancels it after a number of polls.
class Job : public JobStatus {
public:
    /// Polls that answer "go on".
    int granted = 1 << 30;
    /// Called with each text.
    std::function<void(const std::string&)> onText;

    mutable int polls = 0;
    Lines events; ///< each text, and "step" for each step

    bool HasBeenCanceled() const override { return polls++ >= granted; }
    void SetText(const std::string& text) override {
        events.push_back(text);
        if (onText) {
            onText(text);
        }
    }
    void StepIt() override {
        JobStatus::StepIt();
        events.push_back("step");
    }
};

/// The smallest room of a template, which no random room looks like.
inline constexpr std::string_view kLongPlan = R"(
    NW wN wN wN wN wN wN wN NE
    SW wS wS wS wS wS wS wS SE)";

inline std::string Size(const Layout& layout) {
    return std::to_string(layout.GetWidth()) + "x" + std::to_string(layout.GetHeight());
}

} // namespace Tarnex::Test
