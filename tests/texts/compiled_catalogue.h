// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace quode::test {

/// Compiles a catalogue with msgfmt, as the build does.
/// @param entries  the .po file without its header
inline void compileCatalogue(const std::filesystem::path& file, const std::string& language, const std::string& plural,
                             const std::string& entries) {
    std::filesystem::create_directories(file.parent_path());
    const std::filesystem::path source = file.string() + ".po";
    std::ofstream(source) << "msgid \"\"\nmsgstr \"\"\n\"Language: " << language << "\\n\"\n"
                          << "\"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                          << "\"Plural-Forms: " << plural << "\\n\"\n\n"
                          << entries;
    const std::string command =
        std::string(QUODE_MSGFMT) + " --endianness=little -o '" + file.string() + "' '" + source.string() + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("msgfmt failed");
}

}  // namespace quode::test
