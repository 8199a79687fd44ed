// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <stdexcept>

#include "common/LanguagePack.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consume(std::string_view bytes) {
    try {
        parseLanguagePack(bytes);
    } catch (const std::runtime_error&) {
        // says what is wrong with the file
    }
}

const Target target("language_pack", consume);

}  // namespace
}  // namespace quode::fuzz
