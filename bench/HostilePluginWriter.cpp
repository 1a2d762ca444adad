// SPDX-License-Identifier: MIT
// Writes every hostile plug-in, and what it is compared with, into a folder: for scripts/attack.
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <tests/support/HostilePlugins.h>

namespace {

void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: vaultry_hostile_plugins FOLDER BYTES\n";
        return 2;
    }
    const std::string folder = argv[1];
    const std::size_t size = std::strtoull(argv[2], nullptr, 10);
    for (const auto& hostility : Tarnex::Test::Hostilities()) {
        const std::string name(hostility.name);
        Write(folder + '/' + name + ".esp", hostility.make(size));
        Write(folder + '/' + name + "-2.esp", Tarnex::Test::HostilePartner(name, size));
    }
    return 0;
}
