// SPDX-License-Identifier: MIT
#include <vaultry/output/Mod.h>

#include <utility>

namespace Tarnex {

void Mod::SetMasterFile(const char* name, std::uint32_t size) {
    header.SetMasterFile(name, size);
}

void Mod::SetDescription(const char* text) {
    header.SetDescription(text);
}

DiPtr<Cell> Mod::CreateCell(const char* name) {
    return cells.emplace_back(MakeDi<Cell>(name));
}

DiPtr<Container> Mod::CreateContainer() {
    return containers.emplace_back(MakeDi<Container>());
}

DiPtr<Key> Mod::CreateKey(const char* id) {
    return keys.emplace_back(MakeDi<Key>(id));
}

DiPtr<PathGrid> Mod::CreatePathGrid(const char* cell) {
    return pathGrids.emplace_back(MakeDi<PathGrid>(cell));
}

DiPtr<WorldCell> Mod::CreateWorldCell(CellHead head) {
    return worldCells.emplace_back(MakeDi<WorldCell>(std::move(head)));
}

void Mod::ResetContent() {
    keys.clear();
    containers.clear();
    cells.clear();
    worldCells.clear();
    pathGrids.clear();
}

void Mod::Write(std::ostream& stream) {
    header.Write(stream);
    // What a record names stands before it.
    for (const DiPtr<Key>& key : keys) {
        key->Write(stream);
    }
    for (const DiPtr<Container>& container : containers) {
        container->Write(stream);
    }
    std::uint32_t number = 1;
    const auto writeNumbered = [&](auto& cell) {
        cell.NumberFrom(number);
        cell.Write(stream);
        number += uniqueReferences ? static_cast<std::uint32_t>(cell.GetRefs().size()) : 0;
    };
    for (const DiPtr<Cell>& cell : cells) {
        writeNumbered(*cell);
    }
    for (const DiPtr<WorldCell>& cell : worldCells) {
        writeNumbered(*cell);
    }
    // A reader has to know the cell: a grid without one is taken for that of the world outside.
    for (const DiPtr<PathGrid>& grid : pathGrids) {
        grid->Write(stream);
    }
}

} // namespace Tarnex
