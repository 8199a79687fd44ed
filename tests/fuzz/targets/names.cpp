// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Names that are searched for: folded, compared, shown.
#include "common/printable.h"
#include "common/utf8.h"
#include "data/name_folding.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeNames(std::string_view bytes) {
    const std::string folded = foldedName(bytes);
    require(foldedName(folded) == folded || !isUtf8(bytes));
    const std::size_t half = bytes.size() / 2;
    typingMistakes(bytes.substr(0, half), bytes.substr(half), 2);
    require(!hasControls(printable(bytes)) || !isUtf8(bytes));
}

const Target ofNames("names", consumeNames);

}  // namespace
}  // namespace quode::fuzz
