// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarms/AlarmJournal.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/file_kind.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr const char* fileName = ".alarms.lock";
constexpr std::size_t largestContent = 64 * 1024;  // far more lines than there are alarms

constexpr std::pair<AlarmIntent::Kind, std::string_view> words[] = {
    {AlarmIntent::Kind::on, "on "}, {AlarmIntent::Kind::off, "off "}, {AlarmIntent::Kind::drop, "drop "}};

std::string lineOf(const AlarmIntent& intent) {
    for (const auto& [kind, word] : words) {
        if (kind == intent.kind) return std::string(word) + std::to_string(intent.timeId) + " " + intent.event + "\n";
    }
    return "renew\n";
}

// Nothing for a line that no version of this program writes.
std::optional<AlarmIntent> intentOf(std::string_view line) {
    if (line == "renew") return AlarmIntent{};
    for (const auto& [kind, word] : words) {
        if (!line.starts_with(word)) continue;
        line.remove_prefix(word.size());
        const bool isWhole = line.size() >= 2 && line[0] >= '1' && line[0] <= '6' && line[1] == ' ';
        if (isWhole) return AlarmIntent{kind, line[0] - '0', std::string(line.substr(2))};
        break;
    }
    return std::nullopt;
}

std::string reason() {
    return std::generic_category().message(errno);
}

}  // namespace

AlarmJournal::AlarmJournal(const std::filesystem::path& folder, std::chrono::milliseconds patience)
    : file_(folder / fileName), locked_(LockedFile::file(file_)) {
    const std::string cause = locked_.isOpen() ? "" : reason();
    if (locked_.isOpen() ? !locked_.isRegularFile() : isNoRegularFile(file_, Links::kept)) {
        problem_ = _("The alarms cannot be changed: {} is not a regular file. Move it away.", file_.string());
    } else if (!locked_.isOpen()) {
        problem_ = _("The alarms cannot be changed: {} cannot be opened ({}). Give yourself write permission there.",
                     file_.string(), cause);
    } else {
        lock(patience);
    }
}

void AlarmJournal::lock(std::chrono::milliseconds patience) {
    const LockedFile::Result result = locked_.lock(patience);
    isBusy_ = result == LockedFile::Result::busy;
    if (isBusy_) {
        problem_ = _("Another program is changing the alarms and does not finish. Try again, or end that program.");
    } else if (result == LockedFile::Result::failed) {
        problem_ = _("The alarms cannot be changed: {} cannot be locked ({}).", file_.string(), reason());
    }
}

std::string AlarmJournal::content() const {
    std::string text(largestContent, '\0');
    const ssize_t count = ::pread(locked_.descriptor(), text.data(), text.size(), 0);
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text.substr(0, text.rfind('\n') + 1);  // a line without its end was not recorded
}

std::vector<AlarmIntent> AlarmJournal::unfinished() const {
    std::vector<AlarmIntent> intents;
    if (!isHeld()) return intents;
    const std::string text = content();
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        const std::optional<AlarmIntent> intent = intentOf(std::string_view(text).substr(at, end - at));
        const bool isNew = intent && std::ranges::find(intents, *intent) == intents.end();
        if (isNew) intents.push_back(*intent);
        at = end + 1;
    }
    return intents;
}

void AlarmJournal::begin(const AlarmIntent& intent) {
    const std::string line = lineOf(intent);
    const auto size = static_cast<off_t>(content().size());
    const bool isWritten =
        ::pwrite(locked_.descriptor(), line.data(), line.size(), size) == static_cast<ssize_t>(line.size());
    if (isWritten && ::fdatasync(locked_.descriptor()) == 0) return;
    const std::string cause = reason();
    [[maybe_unused]] const int ignored = ::ftruncate(locked_.descriptor(), size);
    throw AlarmJournalError(
        _("The alarms cannot be changed: {} cannot be written ({}). Make room on the disk and try "
          "again. Nothing was changed.",
          file_.string(), cause));
}

void AlarmJournal::end(const AlarmIntent& intent) noexcept {
    try {
        std::string rest;
        for (const AlarmIntent& each : unfinished()) {
            if (each != intent) rest += lineOf(each);
        }
        // The rest is part of the old content: after an interruption a line may be there twice, or a line of finished
        // work may remain; both are harmless.
        const bool isWritten =
            ::pwrite(locked_.descriptor(), rest.data(), rest.size(), 0) == static_cast<ssize_t>(rest.size());
        if (isWritten) [[maybe_unused]]
            const int ignored = ::ftruncate(locked_.descriptor(), static_cast<off_t>(rest.size()));
    } catch (const std::exception&) {
        // Without memory the line stays, and the next holder checks it again.
    }
}

bool AlarmJournal::isPending(const std::filesystem::path& folder) {
    struct stat facts {};
    return ::lstat((folder / fileName).c_str(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size > 0;
}

}  // namespace quode
