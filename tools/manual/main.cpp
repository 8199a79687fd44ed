// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode-build-manual FOLDER: writes the manual page and the completions of `quode` into a folder.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli/commands.h"
#include "tools/manual/manual.h"

int main(int count, char** values) {
    if (count != 2) {
        std::cerr << "Usage: quode-build-manual FOLDER\n";
        return 2;
    }
    using namespace quode;
    const manual::Subject quode{&cli::quodeProgram(), cli::allCommands(), QUODE_VERSION};
    const std::filesystem::path folder = values[1];
    std::filesystem::create_directories(folder);
    const auto write = [&folder](const char* name, const std::string& text) {
        std::ofstream file(folder / name, std::ios::binary);
        file << text;
        file.close();
        if (file) return true;
        std::cerr << "quode-build-manual: " << (folder / name).string() << " cannot be written\n";
        return false;
    };
    const bool isDone = write("quode.1", manualPage(quode)) && write("quode.bash", bashCompletion(quode)) &&
                        write("_quode", zshCompletion(quode)) && write("quode.fish", fishCompletion(quode));
    return isDone ? 0 : 1;
}
