// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/system_zone.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "common/numbers.h"

namespace quode {
namespace {

constexpr std::size_t headerSize = 44;

// Reads big-endian numbers from the front of a file's bytes. Past the end everything is zero and `ok` is false.
class Bytes {
  public:
    explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

    bool ok() const { return ok_; }
    std::string_view rest() const { return bytes_; }

    std::string_view take(std::uint64_t count) {
        if (count > bytes_.size()) {
            ok_ = false;
            bytes_ = {};
            return {};
        }
        const std::string_view taken = bytes_.substr(0, count);
        bytes_.remove_prefix(count);
        return taken;
    }

    std::int64_t number(std::size_t size) {
        std::uint64_t value = 0;
        const std::string_view taken = take(size);
        for (const char c : taken) value = value << 8 | static_cast<unsigned char>(c);
        if (size == 4) return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
        return static_cast<std::int64_t>(value);
    }

  private:
    std::string_view bytes_;
    bool ok_ = true;
};

// The number of entries of each kind.
struct Header {
    char version = 0;
    std::uint64_t utcFlags = 0, standardFlags = 0, leapSeconds = 0, transitions = 0, types = 0, letters = 0;

    std::uint64_t dataSize(std::uint64_t timeSize) const {
        return transitions * (timeSize + 1) + types * 6 + letters + leapSeconds * (timeSize + 4) + standardFlags +
               utcFlags;
    }
};

std::optional<Header> takeHeader(Bytes& bytes) {
    Bytes header(bytes.take(headerSize));
    if (header.take(4) != "TZif") return std::nullopt;
    Header counts;
    counts.version = header.take(1).front();
    header.take(15);
    for (std::uint64_t* count : {&counts.utcFlags, &counts.standardFlags, &counts.leapSeconds, &counts.transitions,
                                 &counts.types, &counts.letters}) {
        *count = static_cast<std::uint32_t>(header.number(4));
    }
    return counts;
}

// The line between two line ends at the end of the file.
std::optional<std::string_view> footer(std::string_view rest) {
    if (rest.size() < 2 || rest.front() != '\n' || rest.back() != '\n') return std::nullopt;
    return rest.substr(1, rest.size() - 2);
}

}  // namespace

std::optional<SystemZone> SystemZone::load(const std::filesystem::path& folder, std::string_view name) {
    if (name.empty() || name.front() == '/' || name.find("..") != std::string_view::npos) return std::nullopt;
    const std::filesystem::path path = folder / name;
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    return parse(bytes);
}

std::optional<SystemZone> SystemZone::parse(std::string_view file) {
    Bytes bytes(file);
    const std::optional<Header> old = takeHeader(bytes);
    if (!old || old->version < '2') return std::nullopt;
    bytes.take(old->dataSize(4));  // the same data with short times, for old readers
    const std::optional<Header> counts = takeHeader(bytes);
    if (!counts || counts->types == 0 || counts->dataSize(8) > bytes.rest().size()) return std::nullopt;

    Bytes times(bytes.take(counts->transitions * 8));
    Bytes indexes(bytes.take(counts->transitions));
    std::vector<Time> types;
    for (std::uint64_t i = 0; i < counts->types; ++i) {
        const auto offset = static_cast<int>(bytes.number(4));
        types.push_back({offset, bytes.number(1) != 0});
        bytes.take(1);  // the abbreviation
    }
    bytes.take(counts->letters + counts->leapSeconds * 12 + counts->standardFlags + counts->utcFlags);

    SystemZone zone;
    zone.first_ = types.front();
    for (std::uint64_t i = 0; i < counts->transitions; ++i) {
        const std::chrono::sys_seconds moment{std::chrono::seconds(times.number(8))};
        const auto type = static_cast<std::size_t>(indexes.number(1));
        if (type >= types.size()) return std::nullopt;
        if (!zone.changes_.empty() && moment <= zone.changes_.back().moment) return std::nullopt;
        zone.changes_.push_back({moment, types[type]});
    }
    const std::optional<std::string_view> line = footer(bytes.rest());
    if (!bytes.ok() || !line) return std::nullopt;
    if (line->empty()) return zone;
    zone.afterwards_ = parsePosixZone(*line);
    return zone.afterwards_ ? std::optional(zone) : std::nullopt;
}

std::optional<SystemZone> SystemZone::parseText(std::string_view text) {
    SystemZone zone;
    const auto next = [&text] {
        const auto number = takeNumber<std::int64_t>(text);
        if (!text.empty()) text.remove_prefix(1);  // the blank or the semicolon
        return number;
    };
    while (text.find(';') != std::string_view::npos) {
        const auto moment = next(), offset = next(), isSummer = next();
        if (!moment || !offset || !isSummer) return std::nullopt;
        const std::chrono::sys_seconds since{std::chrono::seconds(*moment)};
        zone.changes_.push_back({since, {static_cast<int>(*offset), *isSummer != 0}});
    }
    zone.afterwards_ = parsePosixZone(text);
    if (!zone.afterwards_) return std::nullopt;
    if (!zone.changes_.empty()) zone.first_ = zone.changes_.front().time;
    return zone;
}

SystemZone::Time SystemZone::timeAt(std::chrono::sys_seconds moment) const {
    const auto after = std::upper_bound(changes_.begin(), changes_.end(), moment,
                                        [](auto time, const Change& change) { return time < change.moment; });
    if (after == changes_.end() && afterwards_) {
        return {afterwards_->offsetAt(moment), afterwards_->isSummerAt(moment)};
    }
    return after == changes_.begin() ? first_ : std::prev(after)->time;
}

int SystemZone::offsetAt(std::chrono::sys_seconds moment) const {
    return timeAt(moment).offset;
}

int SystemZone::offsetAtNoon(std::chrono::sys_days day) const {
    // The moment of local noon depends on the offset to find. The offset at noon in Greenwich is a first guess; a second
    // step is needed where the clocks change in between.
    const std::chrono::sys_seconds noon = day + std::chrono::hours(12);
    int offset = offsetAt(noon);
    for (int look = 0; look < 2; ++look) offset = offsetAt(noon - std::chrono::seconds(offset));
    return offset;
}

bool SystemZone::isSummerAtNoon(std::chrono::sys_days day) const {
    return timeAt(day + std::chrono::hours(12) - std::chrono::seconds(offsetAtNoon(day))).isSummer;
}

}  // namespace quode
