// SPDX-License-Identifier: MIT
// Reads any bytes as a plug-in, makes every report of it and draws it, and asks it for cells as one
// of the game's files.
#include "fuzz/Require.h"
#include "tools/maps/MapHtml.h"
#include "tools/maps/MapSvg.h"
#include "tools/maps/MapText.h"
#include "tools/maps/PluginMap.h"
#include "tools/plugins/DiffReport.h"
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/PluginChecks.h"

#include <vaultry/game/GameCell.h>
#include <vaultry/game/GameFault.h>
#include <vaultry/output/PluginReader.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <vector>

namespace {

using namespace Tarnex;

using Fuzz::Require;

Report::LoadedPlugin Load(std::string_view bytes) {
    return {"fuzz.esp", std::string(bytes), ReadPlugin(bytes)};
}

// A tile set that knows some of what the corpus places.
Report::PieceIndex Pieces() {
    struct Piece {
        const char* kind;
        const char* id;
    };
    constexpr std::array<Piece, 8> kPieces = {{{"CornerNW", "a_cornernw"},
                                               {"WallN", "a_walln"},
                                               {"Center", "a_center"},
                                               {"DoorwayN", "a_doorwayn"},
                                               {"DoorjambN", "a_doorjambn"},
                                               {"DoorN", "a_doorn"},
                                               {"HallNS", "a_hallns"},
                                               {"HallEndN", "a_walln"}}};
    ConfigMgr config;
    DiPtr<TileSet> set(new TileSet);
    set->SetType("Room");
    set->SetTileSize(256);
    for (const Piece& piece : kPieces) {
        Tile tile;
        tile.kindName = piece.kind;
        tile.id = piece.id;
        set->Set(tile);
    }
    config.roomTileSets.push_back(set);
    return Report::PieceIndex(config);
}

// As the command line draws them: so many cells at most.
void Draw(const PluginFile& file, std::ostream& out) {
    constexpr std::size_t kMostCells = 100;
    static const Report::PieceIndex pieces = Pieces();
    std::vector<const PluginCell*> cells;
    for (const PluginCell& cell : file.cells) {
        cells.push_back(&cell);
    }
    cells.resize(std::min(cells.size(), kMostCells));
    Report::PluginLevels levels(cells, file, pieces);
    const Report::MapCaption caption{0, "", "", "fuzz.esp"};
    const Report::MapSurvey survey = Report::SurveyOf(levels);
    for (std::size_t i = 0; i < levels.Count(); ++i) {
        Report::PrintMap(levels.Level(i), {true, 40}, out);
    }
    Report::SvgDocument(survey, caption)
        .Write(levels, Report::MapLook::Auto, Report::MapTitles::Yes, out);
    Report::WriteHtml(levels, survey, caption, Report::MapLook::Auto, out);
}

// As one of the game's files, which an entrance asks for a cell.
void AskForCells(std::string_view bytes) {
    for (const CellAsked& asked : {CellAsked{"a", 0, 0}, CellAsked{"", 0, 0}}) {
        std::istringstream file{std::string(bytes)};
        GameCell cell;
        try {
            ReadGameCell(file, asked, cell);
        } catch (const GameFault& fault) {
            Require(*fault.what() != '\0');
        }
        Require(!cell.head || cell.head->bytes.size() <= bytes.size());
        Require(!cell.land || std::isfinite(HeightAt(*cell.land, 4000.0, 100.0)));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::Brief brief;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Report::LoadedPlugin whole = Load(bytes);
    const std::vector<PluginFinding> findings = Report::FindInconsistencies(whole.file);
    Require(whole.file.complete || !whole.file.isPlugin || !findings.empty());
    const Report::Inspection inspection{whole.path, whole.file, findings};
    std::ostringstream text;
    Report::PrintInspection(inspection, true, text);
    Require(!Report::ToJson(inspection).empty());
    Require(Report::Diff(whole, whole).differences.empty());
    // Without its last quarter it is another plug-in with much in common.
    const Report::DiffResult diff = Report::Diff(whole, Load(bytes.substr(0, size / 4 * 3)));
    Report::PrintDiff(diff, text);
    Require(!Report::ToJson(diff).empty());
    Draw(whole.file, text);
    AskForCells(bytes);
    return 0;
}
