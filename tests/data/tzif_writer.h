// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quode::test {

/// One change of the clocks in a test's zone file.
struct TzifTransition {
    std::int64_t moment = 0;  ///< seconds since 1970
    int offset = 0;           ///< seconds east of Greenwich, from then on
};

inline void appendBigEndian(std::string& bytes, std::uint64_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xFF);
}

inline std::string tzifHeader(char version, std::uint32_t transitions, std::uint32_t types) {
    std::string bytes = "TZif";
    bytes += version;
    bytes.append(15, '\0');
    for (const std::uint32_t count : {0U, 0U, 0U, transitions, types, 4U}) appendBigEndian(bytes, count, 4);
    return bytes;
}

/// The bytes of a zone file (TZif version 2): an offset, later changes, and the rule after the last of them.
inline std::string tzif(int firstOffset, const std::vector<TzifTransition>& transitions, const std::string& footer) {
    // The part with short times is minimal: one type, no transition.
    std::string bytes = tzifHeader('2', 0, 1) + std::string(6, '\0') + std::string("XXX\0", 4);
    bytes += tzifHeader('2', static_cast<std::uint32_t>(transitions.size()),
                        static_cast<std::uint32_t>(transitions.size() + 1));
    for (const auto& transition : transitions) appendBigEndian(bytes, static_cast<std::uint64_t>(transition.moment), 8);
    for (std::size_t i = 0; i < transitions.size(); ++i) bytes += static_cast<char>(i + 1);
    const auto addType = [&bytes](int offset) {
        appendBigEndian(bytes, static_cast<std::uint32_t>(offset), 4);
        bytes.append(2, '\0');
    };
    addType(firstOffset);
    for (const auto& transition : transitions) addType(transition.offset);
    return bytes + std::string("XXX\0", 4) + "\n" + footer + "\n";
}

}  // namespace quode::test
