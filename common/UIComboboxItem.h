// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quode {

/// One entry of a pick list. Fixed names: all fields.
struct UIComboboxItem {
    std::int64_t itemID = 0;
    std::string displayText;
    std::string originalText;

    friend bool operator==(const UIComboboxItem&, const UIComboboxItem&) = default;
};

}  // namespace quode
