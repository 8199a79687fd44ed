// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace quode::test {

/// How a run of the program ended.
struct Outcome {
    int code = -1;  ///< exit code; -1 when a signal ended it
    std::string out;
    std::string err;

    std::vector<std::string> lines() const;
    /// The line that contains a text; empty when there is none.
    std::string lineWith(std::string_view text) const;
    /// The output read as JSON; throws when it is none.
    nlohmann::json json() const;
};

/// The program in a world of its own: an empty home, 21 November 2026 at 4h UTC in Istanbul, 24 hours, English.
class Program {
  public:
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Sets a variable of the environment.
    Program& with(const std::string& name, const std::string& value);

    /// Runs the program as somebody to whom the folder does not belong. To be used after its rights are set.
    Program& asSomebodyElse();

    Outcome run(const std::vector<std::string>& arguments) const;

    /// Runs a line of a shell, in which "quode" is the program and "onTerminal" the program on a terminal.
    Outcome runShell(const std::string& text) const;

    /// An empty folder that is removed afterwards.
    const std::filesystem::path& folder() const { return folder_; }

    /// Where the user's files are kept unless another folder was chosen.
    std::filesystem::path dataFolder() const { return folder_ / ".local/share/Quode"; }

    /// A copy of the bundle in that folder, which the program uses from now on.
    std::filesystem::path copyBundle();

    /// Installs Evolution's calendar service, as far as the program can see.
    void installCalendarService() const;

  private:
    std::filesystem::path folder_;
    std::map<std::string, std::string> environment_;
    bool isSomebodyElse_ = false;
};

/// The texts as execve takes them.
std::vector<char*> pointersTo(std::vector<std::string>& texts);

/// The columns that a line of the output takes in a terminal.
int widthOf(const std::string& line);

}  // namespace quode::test
