// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/name_groups.h"

namespace quode {
namespace {

// Numbers are stored with the lowest byte first on every machine.
template <typename Number>
void append(std::string& bytes, Number value) {
    for (std::size_t i = 0; i < sizeof(Number); ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

template <typename Number>
Number numberAt(const char* bytes) {
    Number value = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        value |= static_cast<Number>(static_cast<Number>(static_cast<unsigned char>(bytes[i])) << (8 * i));
    }
    return value;
}

bool hasMoreThan(int most, std::uint64_t bits) {
    for (; most > 0; --most) bits &= bits - 1;  // without its lowest bit
    return bits != 0;
}

}  // namespace

std::uint64_t lettersOf(std::string_view folded) {
    std::uint64_t letters = 0;
    for (const char character : folded) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isLetter = byte >= 'a' && byte <= 'z', isDigit = byte >= '0' && byte <= '9';
        const int bit = isLetter ? byte - 'a' : isDigit ? 26 + byte - '0' : 36 + byte % 28;
        letters |= std::uint64_t{1} << bit;
    }
    return letters;
}

std::string nameGroup(std::span<const GroupedName> names) {
    std::string bytes;
    for (const GroupedName& name : names) append(bytes, lettersOf(name.folded));
    for (const GroupedName& name : names) {
        append(bytes, static_cast<std::uint32_t>(name.id));
        append(bytes, static_cast<std::uint32_t>(name.population));
        append(bytes, static_cast<std::uint32_t>(name.parent) << 2 | static_cast<std::uint32_t>(name.kind));
    }
    for (const GroupedName& name : names) bytes += name.folded;
    return bytes;
}

NameGroup::NameGroup(std::string_view bytes, std::size_t nameLength)
    : bytes_(bytes),
      length_(nameLength),
      size_(bytes.size() % (recordSize + nameLength) == 0 ? bytes.size() / (recordSize + nameLength) : 0) {}

bool NameGroup::mayBeNear(std::size_t i, std::uint64_t letters, int mistakes) const {
    const auto own = numberAt<std::uint64_t>(bytes_.data() + i * lettersSize);
    return !hasMoreThan(mistakes, letters & ~own) && !hasMoreThan(mistakes, own & ~letters);
}

GroupedName NameGroup::name(std::size_t i) const {
    const char* const facts = bytes_.data() + size_ * lettersSize + i * factsSize;
    const auto parentAndKind = numberAt<std::uint32_t>(facts + 8);
    return {folded(i), static_cast<std::int32_t>(numberAt<std::uint32_t>(facts)),
            static_cast<std::int32_t>(numberAt<std::uint32_t>(facts + 4)), static_cast<int>(parentAndKind >> 2),
            static_cast<NameKind>(parentAndKind & 3)};
}

}  // namespace quode
