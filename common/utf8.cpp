// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/utf8.h"

#include "texts/utf8.h"

namespace quode {

bool isUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!takeCodePoint(bytes)) return false;
    }
    return true;
}

}  // namespace quode
