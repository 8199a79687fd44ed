// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/Environment.h"

#include <cstdlib>

namespace quode {

Environment processEnvironment() {
    return [](std::string_view name) -> std::optional<std::string> {
        const char* value = std::getenv(std::string(name).c_str());
        if (value == nullptr) return std::nullopt;
        return value;
    };
}

std::optional<std::string> nonEmpty(const Environment& environment, std::string_view name) {
    std::optional<std::string> value = environment(name);
    if (value && value->empty()) value.reset();
    return value;
}

}  // namespace quode
