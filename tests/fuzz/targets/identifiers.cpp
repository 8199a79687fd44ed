// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "fuzz/target.h"
#include "platform/event_identifier.h"

namespace quode::fuzz {
namespace {

void consume(std::string_view bytes) {
    if (isOwnIdentifier(bytes)) require(!problemOfIdentifier(bytes));
}

const Target target("identifiers", consume);

}  // namespace
}  // namespace quode::fuzz
