// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/ShownMark.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <string>
#include <string_view>

#include "common/numbers.h"

namespace quode {
namespace {

// Prayer, moment for which it rang, and number; always of the same length, so that the disk need have no room for it.
std::string textOf(const RingRecord& record) {
    return fmt::format("{:3d} {:20d} {:10d}\n", record.alarm.code, record.ringAt.time_since_epoch().count(),
                       record.notification);
}

template <typename Number>
std::optional<Number> nextNumber(std::string_view& text) {
    text = trimmed(text);
    return takeNumber<Number>(text);
}

}  // namespace

ShownMark::ShownMark(const std::filesystem::path& dataFolder)
    : descriptor_(::open((dataFolder / "alarmd.shown").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {}

ShownMark::~ShownMark() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

void ShownMark::set(const RingRecord& record) {
    const std::string text = textOf(record);
    [[maybe_unused]] const auto written = ::pwrite(descriptor_, text.data(), text.size(), 0);
}

std::optional<std::uint32_t> ShownMark::find(const RingRecord& record) const {
    std::array<char, 64> text{};
    if (::pread(descriptor_, text.data(), text.size() - 1, 0) <= 0) return std::nullopt;
    std::string_view rest = text.data();
    const auto code = nextNumber<int>(rest);
    const auto ringAt = nextNumber<long long>(rest);
    const auto number = nextNumber<std::uint32_t>(rest);
    if (code != record.alarm.code || ringAt != record.ringAt.time_since_epoch().count()) return std::nullopt;
    return number;
}

}  // namespace quode
