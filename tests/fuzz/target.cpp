// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "fuzz/target.h"

#include <map>

namespace quode::fuzz {
namespace {

// Within a function: the targets are constructed in no certain order.
std::map<std::string_view, Consume>& targets() {
    static std::map<std::string_view, Consume> all;
    return all;
}

}  // namespace

Target::Target(std::string_view name, Consume consume) {
    targets()[name] = consume;
}

Consume targetNamed(std::string_view name) {
    const auto found = targets().find(name);
    return found == targets().end() ? nullptr : found->second;
}

}  // namespace quode::fuzz
