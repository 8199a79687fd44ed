// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Formats of a language pack.
#include <stdexcept>

#include "common/text_format.h"
#include "fuzz/target.h"

namespace quode::fuzz {
namespace {

void consumeTemplates(std::string_view bytes) {
    try {
        placeholdersOf(bytes);
        filledFormat(bytes, {7, std::string_view("text")});
    } catch (const std::invalid_argument&) {
        // names the format
    }
}

const Target ofTemplates("templates", consumeTemplates);

}  // namespace
}  // namespace quode::fuzz
