// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "companion/RingRecords.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <set>

#include "companion/ring_lines.h"
#include "platform/file_kind.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr const char* fileName = "alarmd.rings";
constexpr int lines = 96;  // the first one tells how far all is decided

class Descriptor {
  public:
    Descriptor(const std::filesystem::path& file, int flags)
        : number_(::open(file.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW, 0600)) {
        struct stat facts {};
        if (number_ < 0 || (::fstat(number_, &facts) == 0 && S_ISREG(facts.st_mode))) return;
        ::close(number_);
        number_ = -1;
        errno = EINVAL;
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }

  private:
    int number_;
};

// Writes a line that is there already, down to the disk.
bool writeLine(const std::filesystem::path& file, int line, const std::string& text) {
    const Descriptor open(file, O_WRONLY);
    if (!open) return false;
    const auto written = ::pwrite(open.number(), text.data(), text.size(),
                                  static_cast<off_t>(line) * static_cast<off_t>(ringLineLength));
    return written == static_cast<ssize_t>(text.size()) && ::fdatasync(open.number()) == 0;
}

bool isOver(RingState state) {
    return state == RingState::finished || state == RingState::dropped;
}

bool comesAgain(RingState state) {
    return state == RingState::begun || state == RingState::snoozed || state == RingState::unseen;
}

}  // namespace

bool RingRecords::reserve(const std::filesystem::path& dataFolder) {
    const std::filesystem::path file = dataFolder / fileName;
    std::error_code error;
    if (std::filesystem::file_size(file, error) >= lines * ringLineLength && !error) return true;
    const Descriptor open(file, O_RDWR | O_CREAT);
    if (!open) return false;
    // In one piece, so that another program never finds a part of it; what is there already is kept.
    const std::string empty = emptyLine();
    std::string content;
    struct stat facts {};
    ::fstat(open.number(), &facts);
    const auto whole = static_cast<std::size_t>(facts.st_size) / ringLineLength;
    for (std::size_t line = whole; line < lines; ++line) content += empty;
    const auto written =
        ::pwrite(open.number(), content.data(), content.size(), static_cast<off_t>(whole * ringLineLength));
    return written == static_cast<ssize_t>(content.size()) && ::fdatasync(open.number()) == 0;
}

RingRecords::RingRecords(std::filesystem::path dataFolder) : file_(dataFolder / fileName) {
    read();
}

void RingRecords::read() {
    const Descriptor open(file_, O_RDONLY);
    if (!open) return;
    std::string text(ringLineLength, '\0');
    for (int line = 0; line < lines; ++line) {
        const auto at = static_cast<off_t>(line) * static_cast<off_t>(ringLineLength);
        if (::pread(open.number(), text.data(), text.size(), at) != static_cast<ssize_t>(text.size())) return;
        if (line == 0) {
            decided_ = decidedFrom(text);
            continue;
        }
        const std::optional<NumberedRing> ring = ringFrom(text);
        if (!ring) continue;
        Entry& entry = entries_[{ring->record.alarm.code, ring->record.alarm.due}];
        if (entry.serial <= ring->serial) entry = {ring->record, ring->serial, line, true};
        lastSerial_ = std::max(lastSerial_, ring->serial);
    }
}

std::optional<RingRecord> RingRecords::find(int code, std::chrono::sys_seconds due) const {
    const auto entry = entries_.find({code, due});
    return entry == entries_.end() ? std::nullopt : std::optional(entry->second.record);
}

std::vector<const RingRecords::Entry*> RingRecords::inOrder() const {
    std::vector<const Entry*> order;
    for (const auto& [key, entry] : entries_) order.push_back(&entry);
    std::ranges::sort(order, {}, &Entry::serial);
    return order;
}

std::vector<RingRecord> RingRecords::all() const {
    std::vector<RingRecord> records;
    for (const Entry* entry : inOrder()) records.push_back(entry->record);
    return records;
}

std::vector<RingRecord> RingRecords::unfinished() const {
    std::vector<RingRecord> records = all();
    std::erase_if(records, [](const RingRecord& each) { return isOver(each.state); });
    return records;
}

// A line that no ring has; without one that of the oldest ring that is not to come again. One that is shown gives way
// too: many users never answer.
int RingRecords::freeLine() {
    std::set<int> taken;
    for (const auto& [key, entry] : entries_) taken.insert(entry.line);
    for (int line = 1; line < lines; ++line) {
        if (!taken.contains(line)) return line;
    }
    const std::vector<const Entry*> order = inOrder();
    const auto over = std::ranges::find_if(order, [](const Entry* each) { return !comesAgain(each->record.state); });
    const Entry* const given = over == order.end() ? order.front() : *over;
    const int line = given->line;
    entries_.erase({given->record.alarm.code, given->record.alarm.due});
    return line;
}

void RingRecords::keep(const RingRecord& record) {
    const Key key{record.alarm.code, record.alarm.due};
    const auto known = entries_.find(key);
    const int line = known == entries_.end() ? freeLine() : known->second.line;
    cleared_.erase(line);
    entries_[key] = {record, ++lastSerial_, line, false};
    save();
}

void RingRecords::forget(int code, std::chrono::sys_seconds due) {
    const auto known = entries_.find({code, due});
    if (known == entries_.end()) return;
    cleared_[known->second.line] = false;
    entries_.erase(known);
    save();
}

void RingRecords::setDecided(const DecidedNote& note) {
    if (decided_ == note) return;
    decided_ = note;
    isDecidedWritten_ = false;
    save();
}

void RingRecords::save() {
    std::error_code error;
    if (!std::filesystem::exists(file_, error) && (decided_ || !entries_.empty())) {
        isDecidedWritten_ = !decided_;
        for (auto& [key, entry] : entries_) entry.isWritten = false;
    }
    problem_.clear();
    if (!reserve(file_.parent_path())) return noteProblem();
    if (decided_ && !isDecidedWritten_) isDecidedWritten_ = write(0, decidedLine(*decided_));
    for (auto& [key, entry] : entries_) {
        if (!entry.isWritten) entry.isWritten = write(entry.line, ringLine({entry.serial, entry.record}));
    }
    for (auto& [line, isWritten] : cleared_) isWritten = write(line, emptyLine());
    std::erase_if(cleared_, [](const auto& each) { return each.second; });
}

bool RingRecords::write(int line, const std::string& text) {
    const bool isWritten = writeLine(file_, line, text);
    if (!isWritten) noteProblem();
    return isWritten;
}

void RingRecords::noteProblem() {
    const std::string cause = std::strerror(errno);
    problem_ = isNoRegularFile(file_, Links::kept)
                   ? _("The rings cannot be noted: {} is not a regular file. They are kept in memory. Move it away.",
                       file_.string())
                   : _("The rings cannot be noted in {}: {}. They are kept in memory. Make room, and give yourself the "
                       "right to write there.",
                       file_.parent_path().string(), cause);
}

}  // namespace quode
