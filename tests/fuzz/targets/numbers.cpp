// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Texts of numbers and coordinates, as databases and users write them.
#include "common/numbers.h"
#include "common/formatting.h"
#include "data/coordinates.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeNumbers(std::string_view bytes) {
    const std::string text(bytes);
    leadingNumber<double>(formatting::getFloatStr(decipheredCoordinate(text)));
    leadingNumber<int>(text);
    numberOf<double>(text);
    numberOf<int>(text);
}

const Target ofNumbers("numbers", consumeNumbers);

}  // namespace
}  // namespace quode::fuzz
