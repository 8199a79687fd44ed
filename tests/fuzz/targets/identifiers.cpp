// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "fuzz/target.h"
#include "platform/event_identifier.h"

namespace quode::fuzz {
namespace {

void consumeIdentifiers(std::string_view bytes) {
    if (isOwnIdentifier(bytes)) require(!problemOfIdentifier(bytes));
}

const Target ofIdentifiers("identifiers", consumeIdentifiers);

}  // namespace
}  // namespace quode::fuzz
