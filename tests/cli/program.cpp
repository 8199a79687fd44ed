// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "support/file_content.h"
#include "terminal/text_layout.h"

namespace quode::test {
namespace {

constexpr unsigned nobody = 65534;

// In memory where there is such a folder: the program flushes what it keeps, which takes its time on a disk.
std::filesystem::path scratchFolder() {
    const std::filesystem::path inMemory = "/dev/shm";
    return access(inMemory.c_str(), W_OK | X_OK) == 0 ? inMemory : std::filesystem::temp_directory_path();
}

void redirect(int stream, const std::filesystem::path& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || dup2(file, stream) < 0) _exit(126);
    close(file);
}

}  // namespace

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> Outcome::lines() const {
    std::istringstream stream(out);
    std::vector<std::string> all;
    for (std::string line; std::getline(stream, line);) all.push_back(line);
    return all;
}

std::string Outcome::lineWith(std::string_view text) const {
    for (const std::string& line : lines()) {
        if (line.find(text) != std::string::npos) return line;
    }
    return "";
}

nlohmann::json Outcome::json() const {
    return nlohmann::json::parse(out);
}

Program::Program() {
    std::string name = (scratchFolder() / "quode-cli-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make a folder in " + name);
    folder_ = name;
    environment_ = {{"HOME", name},
                    {"PATH", "/usr/bin:/bin"},
                    {"LC_ALL", "en_GB.UTF-8"},
                    {"TZ", "Europe/Istanbul"},
                    {"TERM", "xterm"},
                    {"QUODE_NOW", "2026-11-21T04:00:00Z"}};
}

Program::~Program() {
    std::error_code ignored;
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(folder_, ignored);
}

void Program::installCalendarService() const {
    const std::filesystem::path services = folder_ / ".local/share/dbus-1/services";
    std::filesystem::create_directories(services);
    std::ofstream(services / "org.gnome.evolution.dataserver.Sources5.service") << "[D-BUS Service]\n";
}

Program& Program::with(const std::string& name, const std::string& value) {
    environment_[name] = value;
    return *this;
}

std::filesystem::path Program::copyBundle() {
    const std::filesystem::path copy = folder_ / "bundle";
    std::filesystem::copy(QUODE_BUNDLE, copy, std::filesystem::copy_options::recursive);
    with("QUODE_BUNDLE_DIR", copy.string());
    return copy;
}

Program& Program::asSomebodyElse() {
    isSomebodyElse_ = true;
    return *this;
}

Outcome Program::run(const std::vector<std::string>& arguments) const {
    std::vector<std::string> words{QUODE_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables;
    for (const auto& [name, value] : environment_) variables.push_back(name + "=" + value);
    std::vector<char*> argv = pointersTo(words), envp = pointersTo(variables);
    const std::filesystem::path out = folder_ / "stdout", err = folder_ / "stderr";
    const pid_t child = fork();
    if (child == 0) {
        redirect(STDOUT_FILENO, out);
        redirect(STDERR_FILENO, err);
        if (isSomebodyElse_ && geteuid() == 0 && (setgid(nobody) != 0 || setuid(nobody) != 0)) _exit(126);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(out), contentOf(err)};
}

Outcome Program::runShell(const std::string& text) const {
    std::string variables;
    for (const auto& [name, value] : environment_) variables.append(name).append("='").append(value).append("' ");
    const std::filesystem::path out = folder_ / "stdout", err = folder_ / "stderr";
    const std::string script = "quode() { env -i " + variables +
                               "'" QUODE_PROGRAM "' \"$@\"; }; onTerminal() { env -i " + variables +
                               "script -qec \"" QUODE_PROGRAM " $*\" /dev/null; }; { " + text + "; } >'" +
                               out.string() + "' 2>'" + err.string() + "'";
    const int status = std::system(("bash -c \"$(cat <<'END'\n" + script + "\nEND\n)\"").c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(out), contentOf(err)};
}

int widthOf(const std::string& line) {
    return terminal::displayWidth(line);
}

}  // namespace quode::test
