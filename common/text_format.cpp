// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/text_format.h"

#include <stdexcept>

namespace quode {
namespace {

// Walks over a format: plain text goes to `text`, each placeholder's kind to `placeholder`.
template <typename Text, typename Placeholder>
void walk(std::string_view format, Text text, Placeholder placeholder) {
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%') {
            text(format[i]);
            continue;
        }
        const char kind = ++i < format.size() ? format[i] : '\0';
        if (kind == '%') {
            text('%');
        } else if (kind == 'd' || kind == '@') {
            placeholder(kind);
        } else {
            throw std::invalid_argument("The text \"" + std::string(format) + "\" holds an unknown placeholder.");
        }
    }
}

}  // namespace

std::string filledFormat(std::string_view format, std::initializer_list<FormatValue> values) {
    std::string filled;
    auto next = values.begin();
    const auto misfit = [&] {
        return std::invalid_argument("The placeholders of the text \"" + std::string(format) +
                                     "\" do not fit its values.");
    };
    const auto fill = [&](char kind) {
        if (next == values.end()) throw misfit();
        const FormatValue& value = *next++;
        const int* number = std::get_if<int>(&value);
        if ((kind == 'd') != (number != nullptr)) throw misfit();
        filled += number != nullptr ? std::to_string(*number) : std::string(std::get<std::string_view>(value));
    };
    walk(
        format, [&](char c) { filled += c; }, fill);
    if (next != values.end()) throw misfit();
    return filled;
}

std::string placeholdersOf(std::string_view format) {
    std::string kinds;
    walk(
        format, [](char) {}, [&](char kind) { kinds += kind; });
    return kinds;
}

}  // namespace quode
