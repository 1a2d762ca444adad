// SPDX-License-Identifier: MIT
// Runs a target on each file that is named, or on the standard input: for compilers without
// libFuzzer, and to repeat a finding.
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int RunOn(std::istream& stream) {
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    return LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                  bytes.size());
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return RunOn(std::cin);
    }
    for (int i = 1; i < argc; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        if (!file) {
            std::cerr << "cannot open " << argv[i] << '\n';
            return 2;
        }
        RunOn(file);
    }
    return 0;
}
