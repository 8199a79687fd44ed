// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/autostart.h"

#include <unistd.h>

#include <string_view>
#include <system_error>
#include <vector>

#include "platform/atomic_file.h"
#include "platform/file_calls.h"
#include "platform/folders.h"
#include "platform/key_file.h"
#include "texts/translation.h"

namespace quode {
namespace {

namespace fs = std::filesystem;

constexpr const char* unitName = "quode-alarmd.service";
constexpr const char* entryName = "quode-alarmd.desktop";
constexpr const char* group = "Desktop Entry";
constexpr const char* wantsFolder = "systemd/user/default.target.wants";
constexpr std::size_t largestEntry = 64 * 1024;

std::vector<std::string> parts(std::string_view text, char separator) {
    std::vector<std::string> all;
    while (!text.empty()) {
        const std::size_t end = text.find(separator);
        if (end != 0) all.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return all;
}

std::vector<fs::path> configFolders(const Environment& environment) {
    std::vector<fs::path> folders{configFolderFrom(environment)};
    for (const std::string& each : parts(nonEmpty(environment, "XDG_CONFIG_DIRS").value_or("/etc/xdg"), ':')) {
        folders.emplace_back(each);
    }
    return folders;
}

bool isForDesktop(const Environment& environment, const std::string& entry) {
    const auto wanted = valueInKeyFile(entry, group, "OnlyShowIn");
    const auto present = nonEmpty(environment, "XDG_CURRENT_DESKTOP");
    if (!wanted || !present) return true;
    for (const std::string& desktop : parts(*present, ':')) {
        if ((";" + *wanted + ";").find(";" + desktop + ";") != std::string::npos) return true;
    }
    return false;
}

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

// As sd_booted(3) tells it.
bool systemdRuns(const Environment& environment) {
    const auto runtime = nonEmpty(environment, "XDG_RUNTIME_DIR");
    return runtime && isThere("/run/systemd/system") && isThere(fs::path(*runtime) / "systemd");
}

// The file of the unit, in the order in which systemd looks for it.
std::optional<fs::path> unitFile(const Environment& environment) {
    const fs::path home = homeFolderFrom(environment);
    for (const fs::path& folder : {fs::path(configFolderFrom(environment)) / "systemd/user",
                                   fs::path("/etc/systemd/user"), home / ".local/share/systemd/user",
                                   fs::path("/usr/local/lib/systemd/user"), fs::path("/usr/lib/systemd/user")}) {
        std::error_code error;
        if (fs::is_regular_file(folder / unitName, error)) return folder / unitName;
    }
    return std::nullopt;
}

bool unitIsEnabled(const Environment& environment) {
    if (!systemdRuns(environment) || !unitFile(environment)) return false;
    return isThere(fs::path(configFolderFrom(environment)) / wantsFolder / unitName) ||
           isThere(fs::path("/etc/systemd/user/default.target.wants") / unitName);
}

// What `systemctl --user enable` does.
FileOutcome enableUnit(const Environment& environment, const fs::path& unit) {
    const fs::path folder = fs::path(configFolderFrom(environment)) / wantsFolder;
    if (FileOutcome made = makeFolder(folder); !made.ok) return made;
    std::error_code error;
    fs::create_symlink(unit, folder / unitName, error);
    if (!error || error == std::errc::file_exists) return {};
    return {false, (folder / unitName).string() + ": " + error.message()};
}

// A path as the Exec key of an entry has it.
std::string quoted(const std::string& path) {
    std::string text = "\"";
    for (const char c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') text += "\\\\";
        text += c;
        if (c == '%') text += c;
    }
    return text + "\"";
}

// The program of an Exec key, without its arguments.
std::string programIn(const std::string& exec) {
    const bool isQuoted = exec.starts_with('"');
    std::string program;
    for (std::size_t i = isQuoted ? 1 : 0; i < exec.size() && exec[i] != (isQuoted ? '"' : ' '); ++i) {
        if (exec.compare(i, 2, "\\\\") == 0) i += 2;
        if (exec.compare(i, 2, "%%") == 0) ++i;
        if (i < exec.size()) program += exec[i];
    }
    return program;
}

FileOutcome writeEntry(const Environment& environment, const std::string& name, const fs::path& program,
                       const std::string& more) {
    const fs::path folder = fs::path(configFolderFrom(environment)) / "autostart";
    if (FileOutcome made = makeFolder(folder); !made.ok) return made;
    FileCalls calls;
    return replaceFile(calls, folder / name,
                       "[Desktop Entry]\nType=Application\nName=Quode\nExec=" + quoted(program.string()) +
                           "\nNoDisplay=true\n" + more);
}

bool isStarted(const std::optional<AutostartEntry>& entry) {
    return entry && !entry->isHidden && entry->isForDesktop && ::access(entry->program.c_str(), X_OK) == 0;
}

ServiceStart madeNew(const FileOutcome& outcome) {
    if (outcome.ok) return {true, true, _("The alarm service now starts with each login, so that the alarms ring.")};
    return {
        false, false,
        _("The alarm service does not start with your next login: {} Start it then: quode-alarmd", outcome.message)};
}

}  // namespace

std::optional<AutostartEntry> autostartEntry(const Environment& environment, const std::string& name) {
    for (const fs::path& folder : configFolders(environment)) {
        const fs::path file = folder / "autostart" / name;
        const FileContent content = readWholeFile(file, largestEntry);
        if (!content.bytes) continue;
        const std::string program = programIn(valueInKeyFile(*content.bytes, group, "Exec").value_or(""));
        return AutostartEntry{file, program, valueInKeyFile(*content.bytes, group, "Hidden") == "true",
                              isForDesktop(environment, *content.bytes)};
    }
    return std::nullopt;
}

bool serviceStartsAtLogin(const Environment& environment) {
    if (unitIsEnabled(environment)) return true;
    return isStarted(autostartEntry(environment, entryName));
}

ServiceStart assureServiceStart(const Environment& environment, const fs::path& program) {
    if (nonEmpty(environment, "QUODE_DATA_DIR")) return {};
    if (serviceStartsAtLogin(environment)) return {true, false, {}};
    const std::optional<AutostartEntry> entry = autostartEntry(environment, entryName);
    if (entry && entry->isHidden) {
        return {false, false,
                _("The alarm service does not start with your next login: {} switches it off. Remove that file to let "
                  "it start.",
                  entry->file.string())};
    }
    const std::optional<fs::path> unit = systemdRuns(environment) ? unitFile(environment) : std::nullopt;
    if (unit) return madeNew(enableUnit(environment, *unit));
    if (::access(program.c_str(), X_OK) != 0) {
        return madeNew({false, _("there is no program {}.", program.string())});
    }
    return madeNew(writeEntry(environment, entryName, program, {}));
}

std::string serviceStartCommand(const Environment& environment) {
    const bool hasUnit = systemdRuns(environment) && unitFile(environment);
    return hasUnit ? "systemctl --user enable --now quode-alarmd" : "quode-alarmd";
}

bool programStartsAtLogin(const Environment& environment, const std::string& name) {
    return isStarted(autostartEntry(environment, name + ".desktop"));
}

// Hidden is what switches off an entry of the system too.
std::string setStartAtLogin(const Environment& environment, const fs::path& program, bool isWanted) {
    const FileOutcome outcome =
        writeEntry(environment, program.filename().string() + ".desktop", program, isWanted ? "" : "Hidden=true\n");
    return outcome.ok ? std::string() : outcome.message;
}

}  // namespace quode
