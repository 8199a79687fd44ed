// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// A text as part of HTML, of Pango's markup or of the body of a notification, none of it read as markup. For a place
/// between tags: within an attribute, quotes would have to be replaced too.
inline std::string escapedMarkup(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            default:
                result += c;
        }
    }
    return result;
}

}  // namespace quode
