// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// replay TARGET FOLDER: runs a target over the files of its corpus, with each file cut short at some places too. Every crash
// that was ever found is such a file.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/target.h"

int main(int count, char** arguments) {
    const quode::fuzz::Consume consume = count == 3 ? quode::fuzz::targetNamed(arguments[1]) : nullptr;
    if (consume == nullptr) return 2;
    std::size_t inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(arguments[2])) {
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        for (std::size_t part = 1; part <= 16; ++part) consume(bytes.substr(0, bytes.size() * part / 16));
        ++inputs;
    }
    std::printf("%zu files\n", inputs);
    return inputs > 0 ? 0 : 1;
}
