// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>

#include <algorithm>
#include <sstream>
#include <tests/cli/Process.h>
#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

constexpr std::string_view kHead = R"(<?xml version="1.0" encoding="UTF-8"?>
<OstrelData>
<TileSet TsName="Stone" TsType="Room" TsSize="256">
  <CornerNW>s_corner</CornerNW>
  <WallN>s_wall</WallN>
  <Center>s_center</Center>
)";

constexpr std::string_view kFault = "  <Center>s_center</Center>\n";

constexpr std::string_view kTail = R"(</TileSet>
<TileSet TsName="Höhle" TsType="Room" TsSize="256"><Center>h_center</Center></TileSet>
<TileSet TsName="Cavern" TsType="Cave" TsSize="512"><Center>c_center</Center></TileSet>
<Layout LayoutName="Chamber" Type="Room" Width="3" Height="3">
  <Row><Col>CornerNW</Col><Col>WallN</Col><Col>CornerNE</Col></Row>
  <Row><Col>WallW</Col><Col>Center</Col><Col>WallE</Col></Row>
  <Row><Col>CornerSW</Col><Col>WallS</Col><Col>CornerSE</Col></Row>
</Layout>
<Layout LayoutName="Spot" Type="Room" Width="1" Height="1"><Row><Col>Center</Col></Row></Layout>
<Layout LayoutName="Den" Type="Cave" Width="2" Height="1">
  <Row><Col>Center</Col><Col>Center</Col></Row>
</Layout>
<Container UniqueName="chest" FName="Chest" ModelFile="chest.nif" Weight="100"/>
<Treasure UniqueName="coin" Type="Gold" Max="9"/>
<Theme Name="Storeroom" Level="1">
  <ThemeItem Type="Container" UniqueName="chest" Min="1" Max="1"/>
</Theme>
<Theme Name="Bare"/>
<CreatureTheme Name="Undead" Level="3"/>
<TreasureTheme Name="Coins"><ThemeItem Type="Gold" Min="1" Max="1"/></TreasureTheme>
</OstrelData>
)";

} // namespace

std::vector<std::string> Outcome::ErrLines() const {
    std::istringstream text(err);
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

ProgramTest::ProgramTest()
    : smallConfig(kept.Write("small.xml", std::string(kHead).append(kTail))),
      faultyConfig(kept.Write("faulty.xml", std::string(kHead).append(kFault).append(kTail))) {}

ProcessPlace ProgramTest::Place() const {
    return {folder.File(""), kept.File("out.txt"), kept.File("err.txt")};
}

Outcome ProgramTest::OutcomeOf(int status) const {
    return {status, ReadFile(PathFromUtf8(Place().out)), ReadFile(PathFromUtf8(Place().err))};
}

Outcome ProgramTest::Run(const std::vector<std::string>& arguments) const {
    return OutcomeOf(RunProgram(Place(), arguments));
}

#ifndef _WIN32
Outcome ProgramTest::RunAfter(const std::string& preparation,
                              const std::vector<std::string>& arguments) const {
    return OutcomeOf(RunProgramAfter(preparation, Place(), arguments));
}
#endif

Outcome ProgramTest::Generate(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {"generate", "-c", smallConfig, "--fixed"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return Run(all);
}

std::vector<std::string> ProgramTest::Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
        const std::u8string name = entry.path().filename().u8string();
        names.emplace_back(name.begin(), name.end());
    }
    std::ranges::sort(names);
    return names;
}

std::string ProgramTest::Read(std::string_view name) const {
    return ReadFile(PathFromUtf8(folder.File(name)));
}

void ProgramTest::Write(std::string_view name, std::string_view content) const {
    folder.Write(name, content);
}

} // namespace Tarnex::Test
