// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Every text that a user reads, outside the language packs of the widget, is written in English where it is used and
// translated by the catalogue of the chosen language ("po/de.po"):
//
//     _("Data folder")                                    a text as it stands
//     _("No city is called \"{}\".", name)                a text with values; the compiler checks the English one
//     _n("{0} alarm is on", "{0} alarms are on", count)   a text with a number, which is the first value
//     _c("moon", "Age")                                   one of two equal English texts with different meanings
//     N_("Sunrise")                                       marks a text in a constant table; look it up later with _()
//
// A new or changed text needs no other step: `tools/messages` collects them for the translators, and until a text is
// translated it is shown in English. See CONTRIBUTING.md.
#pragma once

#include <fmt/format.h>

#include <concepts>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quode {

/// The available languages: English and those with a catalogue in the bundle, in alphabetical order.
std::vector<std::string> availableLanguages(const std::filesystem::path& bundle);

/// Chooses the language of this process. Call it at the start, before any text is shown; a long-running process may call it
/// again.
/// @param language  such as "de"; "en" and a language without a readable catalogue give English
/// @return false when there is no readable catalogue
bool useLanguage(std::string_view language, const std::filesystem::path& bundle);

/// The language of this process, such as "de"; "en" before one is chosen.
std::string_view languageInUse();

/// True when a language is written from right to left.
bool isRightToLeft(std::string_view language);

/// A text with marks that keep its direction within text of the other direction; unchanged in a language written from left
/// to right.
std::string isolated(std::string_view text);

/// Marks a text for translation without translating it.
constexpr const char* N_(const char* english) {
    return english;
}

/// The text in the chosen language.
const char* _(const char* english);

/// The same with a context, which distinguishes equal English texts.
const char* _c(const char* context, const char* english);

namespace translation {

struct Text {
    fmt::string_view english;
    fmt::string_view plural = {};
    unsigned long number = 1;
    const char* context = "";
};

/// The translated text with its values; the English one when the translation does not match them.
std::string filled(const Text& text, fmt::format_args values);

template <typename Value>
decltype(auto) inItsDirection(const Value& value) {
    if constexpr (std::convertible_to<const Value&, std::string_view>) {
        return isolated(value);
    } else {
        return (value);
    }
}

template <typename... Values>
std::string filledWith(const Text& text, const Values&... values) {
    return filled(text, fmt::make_format_args(values...));
}

}  // namespace translation

/// The text in the chosen language with values, by the rules of fmt::format.
template <typename First, typename... Rest>
std::string _(fmt::format_string<First, Rest...> english, First&& first, Rest&&... rest) {
    return translation::filledWith({english}, translation::inItsDirection(first), translation::inItsDirection(rest)...);
}

template <typename First, typename... Rest>
std::string _c(const char* context, fmt::format_string<First, Rest...> english, First&& first, Rest&&... rest) {
    return translation::filledWith({.english = english, .context = context}, translation::inItsDirection(first),
                                   translation::inItsDirection(rest)...);
}

/// The text with the plural form for a number, which is its first value.
template <std::integral Number, typename... Rest>
std::string _n(fmt::format_string<Number, Rest...> one, fmt::format_string<Number, Rest...> many, Number number,
               Rest&&... rest) {
    return translation::filledWith({one, many, static_cast<unsigned long>(number)}, number,
                                   translation::inItsDirection(rest)...);
}

}  // namespace quode
