// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/alarm_sounds.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <fstream>

#include "app/session.h"
#include "companion/sounds.h"
#include "platform/file_kind.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

namespace fs = std::filesystem;

constexpr int deepestSound = 3;  // theme/folder/sound

/// The folders in which sound themes are looked for.
std::vector<fs::path> themeFolders(const Session& session) {
    std::vector<fs::path> folders;
    const std::string home = session.variable("HOME").value_or("");
    folders.push_back(fs::path(session.variable("XDG_DATA_HOME").value_or(home + "/.local/share")) / "sounds");
    std::string rest = session.variable("XDG_DATA_DIRS").value_or("/usr/local/share:/usr/share");
    while (!rest.empty()) {
        const std::size_t colon = std::min(rest.find(':'), rest.size());
        if (colon > 0) folders.push_back(fs::path(rest.substr(0, colon)) / "sounds");
        rest.erase(0, colon + 1);
    }
    return folders;
}

bool isInTheme(const Session& session, const std::string& name) {
    constexpr std::array<const char*, 3> extensions{".oga", ".ogg", ".wav"};
    std::error_code error;
    for (const fs::path& folder : themeFolders(session)) {
        const auto options =
            fs::directory_options::follow_directory_symlink | fs::directory_options::skip_permission_denied;
        for (fs::recursive_directory_iterator entry(folder, options, error), end; !error && entry != end;
             entry.increment(error)) {
            if (entry.depth() >= deepestSound) entry.disable_recursion_pending();
            const fs::path& path = entry->path();
            const bool isSound = std::ranges::find(extensions, path.extension()) != extensions.end();
            if (isSound && path.stem() == name) return true;
        }
    }
    return false;
}

/// Whether a file begins as the sounds do that libcanberra plays.
bool isPlayable(const fs::path& file) {
    std::array<char, 12> bytes{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), bytes.size());
    const std::string_view begin(bytes.data(), bytes.size());
    return (begin.starts_with("RIFF") && begin.ends_with("WAVE")) || begin.starts_with("OggS");
}

bool isPath(const std::string& name) {
    return name.find('/') != std::string::npos;
}

}  // namespace

bool soundExists(Session& session, const std::string& name) {
    std::error_code error;
    const Sound sound = soundNamed(name, session.bundle());
    if (const auto* file = std::get_if<fs::path>(&sound)) return fs::is_regular_file(*file, error);
    return isInTheme(session, name);
}

std::string soundNamedByUser(Session& session, const std::string& request) {
    std::error_code error;
    // A file of the present folder is meant only where no sound has that name.
    const bool isFile = isPath(request) || (!soundExists(session, request) && fs::is_regular_file(request, error));
    const std::string name = isFile ? fs::absolute(request, error).lexically_normal().string() : request;
    // Nothing is read of a pipe or a device.
    if (isFile && fs::exists(name, error) && (isNoRegularFile(name) || !isPlayable(name))) {
        throw Failure(ExitCode::notFound, _("{} cannot be played: it is neither a WAV nor an Ogg Vorbis file.", name));
    }
    if (!name.empty() && soundExists(session, name)) return name;
    throw Failure(ExitCode::notFound, _("There is no sound \"{}\". Use one of {}.", request, soundsToChoose(session)));
}

std::string soundsToChoose(Session& session) {
    std::string text;
    for (const std::string& name : bundledSounds(session.bundle())) text += (text.empty() ? "" : ", ") + name;
    return _("{}, those of the desktop's sound theme (such as alarm-clock-elapsed), and any file", text);
}

}  // namespace quode::app
