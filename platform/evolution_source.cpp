// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/evolution_source.h"

#include <fmt/format.h>

#include <chrono>
#include <string_view>
#include <utility>

#include "platform/key_file.h"
#include "texts/translation.h"

namespace quode {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLargestDescription = std::size_t{1} << 20U;
constexpr std::chrono::seconds kLockPatience{5};
constexpr std::string_view kRingsLine = "IncludeMe=true";

bool standsInUriAsItIs(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           std::string_view("-._~/").find(c) != std::string_view::npos;
}

/// A file URI (RFC 8089): every byte outside the unreserved characters as a percent sign and two digits.
std::string fileUri(const fs::path& path) {
    std::string uri = "file://";
    for (const char c : path.string()) {
        uri += standsInUriAsItIs(c) ? std::string(1, c) : fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
    return uri;
}

std::string description(const fs::path& calendarFile, bool rings) {
    return fmt::format(
        "[Data Source]\nDisplayName=Quode\nEnabled=true\nParent=local-stub\n\n"
        "[Local Backend]\nCustomFile={}\nWatch=true\nWritable=false\n\n"
        "[Calendar]\nBackendName=local\nSelected=true\n\n"
        "[Alarms]\n{}\n",
        fileUri(calendarFile), rings ? kRingsLine : "IncludeMe=false");
}

bool hasLine(std::string_view text, std::string_view line) {
    return fmt::format("\n{}\n", text).find(fmt::format("\n{}\n", line)) != std::string::npos;
}

}  // namespace

EvolutionSource::EvolutionSource(fs::path configFolder, std::shared_ptr<FileCalls> files)
    : folder_(std::move(configFolder) / "evolution" / "sources"), files_(std::move(files)) {}

FileOutcome EvolutionSource::connect(const fs::path& calendarFile, bool rings) {
    if (!calendarFile.is_absolute()) {
        return {false, _("The calendar file {} has no absolute path. Use one that starts with a slash.",
                         calendarFile.string())};
    }
    if (FileOutcome folder = makeFolder(folder_); !folder.ok) return folder;
    const FileLock lock(folder_ / ".quode.lock", kLockPatience);
    if (!lock.outcome().ok) return lock.outcome();

    removeTemporaryFiles();
    const FileContent old = readWholeFile(descriptionFile(), kLargestDescription);
    if (!old.outcome.ok) return old.outcome;
    const std::string wanted = description(calendarFile, rings);
    // The server adds the user's choices, for example a colour, to the description: keep it when nothing of ours changes.
    const bool same = old.bytes && hasLine(*old.bytes, "CustomFile=" + fileUri(calendarFile)) &&
                      hasLine(*old.bytes, kRingsLine) == rings;
    return same ? FileOutcome{} : replaceFile(*files_, descriptionFile(), wanted);
}

// The temporary files of interrupted saves.
void EvolutionSource::removeTemporaryFiles() {
    files_->unlink(folder_ / ".quode.source.tmp");
}

FileOutcome EvolutionSource::disconnect() {
    removeTemporaryFiles();
    return removeFile(*files_, descriptionFile());
}

EvolutionSource::State EvolutionSource::stateFor(const fs::path& calendarFile) const {
    const FileContent content = readWholeFile(descriptionFile(), kLargestDescription);
    if (!content.bytes) return State::missing;
    const auto value = [&](std::string_view group, std::string_view key) {
        return valueInKeyFile(*content.bytes, group, key).value_or("");
    };
    if (value("Local Backend", "CustomFile") != fileUri(calendarFile)) return State::otherCalendar;
    if (value("Data Source", "Enabled") == "false") return State::disabled;
    return value("Alarms", "IncludeMe") == "true" ? State::rings : State::silent;
}

bool EvolutionSource::isConnected() const {
    const FileContent content = readWholeFile(descriptionFile(), kLargestDescription);
    return content.bytes && content.bytes->find("CustomFile=") != std::string::npos;
}

bool EvolutionSource::rings() const {
    const FileContent content = readWholeFile(descriptionFile(), kLargestDescription);
    return isConnected() && hasLine(*content.bytes, kRingsLine);
}

fs::path EvolutionSource::descriptionFile() const {
    return folder_ / "quode.source";
}

}  // namespace quode
