// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "tools/manual/manual.h"

namespace quode::manual {
namespace {

void addPaths(const std::vector<terminal::Command>& commands, const std::vector<std::string>& above,
              std::vector<CommandPath>& paths) {
    for (const terminal::Command& command : commands) {
        std::vector<std::string> words = above;
        words.push_back(command.name);
        paths.push_back({words, &command});
        addPaths(command.children, words, paths);
    }
}

}  // namespace

std::vector<CommandPath> allPaths(const std::vector<terminal::Command>& commands) {
    std::vector<CommandPath> paths;
    addPaths(commands, {}, paths);
    return paths;
}

std::string joined(const std::vector<std::string>& words, const char* separator) {
    std::string text;
    for (const std::string& word : words) {
        if (!text.empty()) text += separator;
        text += word;
    }
    return text;
}

}  // namespace quode::manual
