// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "fuzz/target.h"
#include "platform/event_identifier.h"

void quode::fuzz::consume(std::string_view bytes) {
    if (isOwnIdentifier(bytes)) require(!problemOfIdentifier(bytes));
}
