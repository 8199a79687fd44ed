// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A catalogue of translations, as it comes with a language.
#include <stdexcept>
#include <string>

#include "fuzz/target.h"
#include "texts/MessageCatalogue.h"

namespace quode::fuzz {
namespace {

void consumeCatalogue(std::string_view bytes) {
    try {
        const MessageCatalogue catalogue{std::string(bytes)};
        catalogue.find("Stop", "alarm");
        catalogue.find("");
        catalogue.field("Language");
        for (const unsigned long number : {0UL, 1UL, 2UL, 11UL, 1000000UL}) catalogue.findPlural("{} city", number);
    } catch (const std::runtime_error&) {
        // says what is wrong with the file
    }
}

const Target ofCatalogue("catalogue", consumeCatalogue);

}  // namespace
}  // namespace quode::fuzz
