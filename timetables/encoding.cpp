// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/encoding.h"

#include <optional>

#include "common/utf8.h"
#include "texts/translation.h"
#include "timetables/RawTable.h"

namespace quode::timetables {
namespace {

constexpr std::string_view utf8Mark = "\xef\xbb\xbf", littleMark = "\xff\xfe", bigMark = "\xfe\xff";

void append(std::string& text, char32_t letter) {
    const auto byte = [&text](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto rest = [&byte](char32_t bits) { byte(0x80U | (bits & 0x3fU)); };
    if (letter < 0x80U) return byte(letter);
    if (letter < 0x800U) {
        byte(0xc0U | (letter >> 6U));
    } else if (letter < 0x10000U) {
        byte(0xe0U | (letter >> 12U));
        rest(letter >> 6U);
    } else {
        byte(0xf0U | (letter >> 18U));
        rest(letter >> 12U);
        rest(letter >> 6U);
    }
    rest(letter);
}

/// Nothing when the bytes are no UTF-16.
std::optional<std::string> fromUtf16(std::string_view bytes, bool isLittle) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    const auto unitAt = [&](std::size_t i) {
        const auto first = static_cast<unsigned char>(bytes[i]), second = static_cast<unsigned char>(bytes[i + 1]);
        return static_cast<char32_t>(isLittle ? first | second << 8 : first << 8 | second);
    };
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const char32_t unit = unitAt(i);
        if (unit < 0xd800U || unit > 0xdfffU) {
            append(text, unit);
            continue;
        }
        const char32_t low = i + 3 < bytes.size() ? unitAt(i + 2) : 0U;
        if (unit > 0xdbffU || low < 0xdc00U || low > 0xdfffU) return std::nullopt;
        append(text, 0x10000U + ((unit - 0xd800U) << 10U) + (low - 0xdc00U));
        i += 2;
    }
    return text;
}

std::string textOf(std::string_view content) {
    const bool isLittle = content.starts_with(littleMark);
    if (!isLittle && !content.starts_with(bigMark)) {
        return std::string(content.substr(content.starts_with(utf8Mark) ? utf8Mark.size() : 0));
    }
    const auto text = fromUtf16(content.substr(littleMark.size()), isLittle);
    if (!text || text->empty()) throw ImportError(_("The file is damaged UTF-16 text. Save it as \"CSV UTF-8\"."));
    return *text;
}

}  // namespace

std::string utf8Of(std::string_view content) {
    std::string text = textOf(content);
    if (text.find('\0') != std::string::npos) {
        throw ImportError(
            _("The file is not UTF-8 text: it holds bytes that are no letters. Save it as \"CSV UTF-8\"."));
    }
    if (!isUtf8(text)) {
        throw ImportError(
            _("The file is not UTF-8 text but in an older encoding, such as Windows-1254 (Turkish) or Windows-1256 "
              "(Arabic). Open it in a spreadsheet and save it as \"CSV UTF-8\"."));
    }
    return text;
}

}  // namespace quode::timetables
