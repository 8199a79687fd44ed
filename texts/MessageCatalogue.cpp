// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/MessageCatalogue.h"

#include <algorithm>
#include <stdexcept>

namespace quode {
namespace {

constexpr std::uint32_t magic = 0x950412de;
constexpr std::size_t catalogueHeaderSize = 20;
constexpr char contextMark = '\4';

std::string keyOf(std::string_view english, std::string_view context) {
    std::string key(context);
    if (!key.empty()) key += contextMark;
    return key += english;
}

/// The part of a text before its first null byte: the singular of a text with plural forms.
std::string_view firstPart(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// The part of a text with a number, counted from 0; nothing when there are fewer parts.
std::optional<std::string_view> part(std::string_view text, unsigned long index) {
    for (; index > 0; --index) {
        const std::size_t end = text.find('\0');
        if (end == std::string_view::npos) return std::nullopt;
        text.remove_prefix(end + 1);
    }
    return firstPart(text);
}

}  // namespace

MessageCatalogue::MessageCatalogue(std::string bytes) : bytes_(std::move(bytes)) {
    if (bytes_.size() < catalogueHeaderSize || number(0) != magic)
        throw std::runtime_error("it is not a compiled catalogue");
    count_ = number(8);
    originals_ = number(12);
    translations_ = number(16);
    const std::string_view plural = field("Plural-Forms");
    const std::size_t start = plural.find("plural=");
    if (start != std::string_view::npos) rule_ = PluralRule(plural.substr(start + 7));
}

std::uint32_t MessageCatalogue::number(std::size_t offset) const {
    if (offset > bytes_.size() || bytes_.size() - offset < 4) return 0;
    std::uint32_t value = 0;
    for (std::size_t i = 4; i > 0; --i) value = value << 8 | static_cast<unsigned char>(bytes_[offset + i - 1]);
    return value;
}

std::string_view MessageCatalogue::textAt(std::size_t table, std::uint32_t index) const {
    const std::size_t entry = table + std::size_t{8} * index;
    const std::size_t length = number(entry);
    const std::size_t start = number(entry + 4);
    const bool isInside = start < bytes_.size() && length < bytes_.size() - start && bytes_[start + length] == '\0';
    return isInside ? std::string_view(bytes_).substr(start, length) : std::string_view();
}

// The originals are sorted by their bytes.
std::optional<std::string_view> MessageCatalogue::translation(std::string_view key) const {
    std::uint32_t low = 0;
    std::uint32_t high = count_;
    while (low < high) {
        const std::uint32_t middle = low + (high - low) / 2;
        const int order = firstPart(textAt(originals_, middle)).compare(key);
        if (order == 0) {
            const std::string_view text = textAt(translations_, middle);
            if (firstPart(text).empty()) return std::nullopt;
            return text;
        }
        if (order < 0) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return std::nullopt;
}

std::optional<std::string_view> MessageCatalogue::find(std::string_view english, std::string_view context) const {
    const auto text = translation(keyOf(english, context));
    if (!text) return std::nullopt;
    return firstPart(*text);
}

std::optional<std::string_view> MessageCatalogue::findPlural(std::string_view english, unsigned long number,
                                                             std::string_view context) const {
    const auto text = translation(keyOf(english, context));
    if (!text) return std::nullopt;
    return part(*text, rule_.form(number));
}

std::string_view MessageCatalogue::field(std::string_view name) const {
    std::string_view header = translation("").value_or("");
    while (!header.empty()) {
        const std::string_view line = header.substr(0, header.find('\n'));
        if (line.starts_with(name) && line.substr(name.size()).starts_with(": ")) return line.substr(name.size() + 2);
        header.remove_prefix(std::min(header.size(), line.size() + 1));
    }
    return {};
}

}  // namespace quode
