// SPDX-License-Identifier: MIT
#include "tools/stage/Pieces.h"

#include "tools/stage/CaveShape.h"
#include "tools/stage/CellShape.h"
#include "tools/stage/StageTables.h"

#include <vaultry/foundation/CsvRows.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <sstream>
#include <unordered_map>
#include <vector>

namespace Tarnex::Report {

namespace {

enum Column : std::size_t { Id, Sort, Size, Turn, X, Y, Z, Climb, Extent, KnownWord };

using Row = std::vector<std::string>;

float RealIn(const Row& row, Column column) {
    return static_cast<float>(ParseReal(row[column]));
}

std::vector<float> NumbersIn(const std::string& text) {
    std::vector<float> numbers;
    std::istringstream words(text);
    std::string word;
    while (words >> word) {
        numbers.push_back(static_cast<float>(ParseReal(word)));
    }
    return numbers;
}

// West, east, south, north, bottom, top.
Shape BoxOf(const Row& row) {
    const std::vector<float> n = NumbersIn(row[Extent]);
    Shape shape;
    AddBox(shape,
           row[Sort] == "Door" ? Surface::Door : Surface::Furniture,
           {n[0], n[2], n[4]},
           {n[1], n[3], n[5]});
    return shape;
}

// Place and heading of each.
std::vector<Mouth> MouthsOf(const Row& row) {
    const std::vector<float> n = NumbersIn(row[Extent]);
    std::vector<Mouth> mouths;
    for (std::size_t i = 0; i + 3 < n.size(); i += 4) {
        mouths.push_back({{n[i], n[i + 1], n[i + 2]}, static_cast<int>(n[i + 3])});
    }
    return mouths;
}

Shape ShapeOf(const Row& row) {
    if (row[Sort] == "Door" || row[Sort] == "Thing") {
        return BoxOf(row);
    }
    if (const auto cave = CaveShape(row[Sort], MouthsOf(row))) {
        return *cave;
    }
    const auto cell = CellShape({row[Sort], RealIn(row, Size), RealIn(row, Climb), AreaFull});
    const Frame frame{ParseInt(row[Turn]), {RealIn(row, X), RealIn(row, Y), RealIn(row, Z)}};
    return TakenOutOf(frame, cell.value());
}

Known KnownOf(const Row& row) {
    return static_cast<Known>(std::ranges::find(kKnownWords, row[KnownWord]) - kKnownWords.begin());
}

std::vector<Piece> ReadPieces() {
    std::vector<Piece> pieces;
    for (const auto& [line, row, closed] : CsvRows(PieceTable())) {
        if (line == 1) {
            continue; // the names of the columns
        }
        pieces.push_back({row[Id], row[Sort], ShapeOf(row), KnownOf(row)});
    }
    return pieces;
}

} // namespace

std::span<const Piece> Pieces() {
    static const std::vector<Piece> pieces = ReadPieces();
    return pieces;
}

const Piece* FindPiece(std::string_view id) {
    static const auto byId = [] {
        std::unordered_map<std::string, const Piece*> map;
        for (const Piece& piece : Pieces()) {
            map.emplace(ToUpper(piece.id), &piece);
        }
        return map;
    }();
    const auto found = byId.find(ToUpper(id));
    return found == byId.end() ? nullptr : found->second;
}

} // namespace Tarnex::Report
