// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Writes the sounds of the bundle as WAV files into a folder.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tools/sounds/sound.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: quode-build-sounds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    for (const quode::sounds::NamedSound& sound : quode::sounds::allSounds()) {
        const std::filesystem::path file = folder / (sound.name + ".wav");
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream << quode::sounds::wavFile(sound.samples) << std::flush;
        if (!stream) {
            std::fprintf(stderr, "quode-build-sounds: %s cannot be written.\n", file.c_str());
            return 1;
        }
    }
    return 0;
}
