// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/row_checksum.h"

namespace quode {

std::uint32_t rowChecksum(sqlite3_stmt* row) {
    constexpr std::uint32_t start = 2166136261U;
    constexpr std::uint32_t prime = 16777619U;
    std::uint32_t sum = start;
    for (int column = 0; column + 1 < sqlite3_column_count(row); ++column) {
        const unsigned char* bytes = sqlite3_column_text(row, column);
        const int length = sqlite3_column_bytes(row, column);
        for (int i = 0; i < length; ++i) sum = (sum ^ bytes[i]) * prime;
        sum *= prime;
    }
    return sum;
}

bool isIntact(sqlite3_stmt* row) {
    const int last = sqlite3_column_count(row) - 1;
    return sqlite3_column_type(row, last) == SQLITE_INTEGER && sqlite3_column_int64(row, last) == rowChecksum(row);
}

}  // namespace quode
