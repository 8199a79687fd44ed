// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <stdexcept>

#include "common/LanguagePack.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeLanguagePack(std::string_view bytes) {
    try {
        parseLanguagePack(bytes);
    } catch (const std::runtime_error&) {
        // says what is wrong with the file
    }
}

const Target ofLanguagePack("language_pack", consumeLanguagePack);

}  // namespace
}  // namespace quode::fuzz
