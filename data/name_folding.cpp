// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/name_folding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "texts/utf8.h"

namespace quode {
namespace {

constexpr char32_t broken = 0xFFFFFFFF;

// The base letter of each code point from U+00C0 on; '*' for several letters, '?' where the letter is its own base.
constexpr std::string_view latinSupplement =
    "aaaaaa*ceeeeiiiidnooooo ouuuuy**aaaaaa*ceeeeiiiidnooooo ouuuuy*y"
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii**jjkkklllllll"
    "lllnnnnnnnnnoooooo**rrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs"
    "bb????occdddd?eaeffgg*iikkl??nnooo**ppr??s??tttuu?vyyzzz????????"
    "????*********aaiioouuuuuuuuuueaaaa**ggggkkoooozzj***gg*?nnaa**oo"
    "aaaaeeeeiiiioooorrrruuuussttgghhnd**zzaaeeooooooooyylntj**acclts"
    "z??bu?eejjqqrryy";
// The same from U+1E00 on.
constexpr std::string_view latinAdditional =
    "aabbbbbbccddddddddddeeeeeeeeeeffgghhhhhhhhhhiiiikkkkkkllllllllmm"
    "mmmmnnnnnnnnoooooooopppprrrrrrrrssssssssssttttttttuuuuuuuuuuvvvv"
    "wwwwwwwwwwxxxxyyzzzzzzhtwy?s??*?aaaaaaaaaaaaaaaaaaaaaaaaeeeeeeee"
    "eeeeeeeeiiiioooooooooooooooooooooooouuuuuuuuuuuuuuyyyyyyyy??????";

std::string_view severalLetters(char32_t c) {
    switch (c) {
        case U'Æ':
        case U'æ':
        case U'Ǣ':
        case U'ǣ':
        case U'Ǽ':
        case U'ǽ':
            return "ae";
        case U'Œ':
        case U'œ':
            return "oe";
        case U'ß':
        case U'ẞ':
            return "ss";
        case U'Þ':
        case U'þ':
            return "th";
        case U'Ĳ':
        case U'ĳ':
            return "ij";
        case U'Ǆ':
        case U'ǅ':
        case U'ǆ':
        case U'Ǳ':
        case U'ǲ':
        case U'ǳ':
            return "dz";
        case U'Ǉ':
        case U'ǈ':
        case U'ǉ':
            return "lj";
        case U'Ǌ':
        case U'ǋ':
        case U'ǌ':
            return "nj";
        case U'Ȣ':
        case U'ȣ':
            return "ou";
        default:
            return {};
    }
}

char baseLetter(char32_t c) {
    if (c >= 0xC0 && c < 0xC0 + latinSupplement.size()) return latinSupplement[c - 0xC0];
    if (c >= 0x1E00 && c < 0x1E00 + latinAdditional.size()) return latinAdditional[c - 0x1E00];
    if (c == U'ə') return 'a';
    return '?';
}

// The small letter of the Greek and Cyrillic capitals; of others the letter itself.
char32_t smallLetter(char32_t c) {
    const bool isGreek = c >= U'Α' && c <= U'Ϋ', isRussian = c >= U'А' && c <= U'Я';
    if (isGreek || isRussian) return c + 0x20;
    return c >= U'Ѐ' && c <= U'Џ' ? c + 0x50 : c;
}

bool vanishes(char32_t c) {
    const bool apostrophe =
        c == '\'' || c == '`' || c == 0xB4 || (c >= 0x2B9 && c <= 0x2BF) || (c >= 0x2018 && c <= 0x201B) || c == 0x2032;
    const bool combining = (c >= 0x300 && c <= 0x36F) || (c >= 0x64B && c <= 0x65F);
    const bool invisible = c == 0xAD || (c >= 0x200B && c <= 0x200F) || c == 0x2060 || c == 0xFEFF;
    return apostrophe || combining || invisible;
}

bool separates(char32_t c) {
    if (c < 0x80) return !((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'));
    return c < 0xC0 || (c >= 0x2000 && c <= 0x206F) || c == 0x3000 || c == broken;
}

void appendFolded(char32_t c, std::string_view original, std::string& folded) {
    if (c < 0x80) {
        folded += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
        return;
    }
    const char base = baseLetter(c);
    const std::string_view several = base == '*' ? severalLetters(c) : std::string_view();
    if (!several.empty()) {
        folded += several;
    } else if (base == '?' || base == '*') {
        const char32_t small = smallLetter(c);
        if (small == c) {
            folded += original;
        } else {  // two bytes of UTF-8
            folded += static_cast<char>(0xC0 | (small >> 6));
            folded += static_cast<char>(0x80 | (small & 0x3F));
        }
    } else {
        folded += base;
    }
}

}  // namespace

std::string foldedName(std::string_view utf8) {
    std::string folded;
    folded.reserve(utf8.size());
    bool blankDue = false;
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        const char32_t c = takeCodePoint(utf8).value_or(broken);
        if (vanishes(c)) continue;
        if (separates(c) || baseLetter(c) == ' ') {
            blankDue = true;
            continue;
        }
        if (blankDue && !folded.empty()) folded += ' ';
        blankDue = false;
        appendFolded(c, before.substr(0, before.size() - utf8.size()), folded);
    }
    return folded;
}

int typingMistakes(std::string_view a, std::string_view b, int limit) {
    if (a.size() > b.size()) std::swap(a, b);
    const auto most = static_cast<std::size_t>(limit);
    if (b.size() - a.size() > most) return limit + 1;
    // Rows of the edit table: mistakes between the first i letters of b and the first j of a; three rows for swaps.
    // Cells more than `limit` columns from the diagonal have more than `limit` mistakes.
    const std::size_t width = a.size() + 1;
    constexpr std::size_t usualWidth = 40;
    std::array<int, 3 * usualWidth> usual;
    std::vector<int> large;
    int* table = usual.data();
    if (width > usualWidth) {
        large.resize(3 * width);
        table = large.data();
    }
    std::fill_n(table, 3 * width, limit + 1);
    int* previous = table;
    int* current = previous + width;
    int* beforePrevious = current + width;
    for (std::size_t j = 0; j < std::min(width, most + 1); ++j) previous[j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= b.size(); ++i) {
        const std::size_t first = i > most ? i - most : 1, end = std::min(width, i + most + 1);
        current[first - 1] = first == 1 ? static_cast<int>(i) : limit + 1;
        int smallest = first == 1 ? current[0] : limit + 2;
        for (std::size_t j = first; j < end; ++j) {
            const bool same = a[j - 1] == b[i - 1];
            current[j] = std::min({previous[j] + 1, current[j - 1] + 1, previous[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && a[j - 1] == b[i - 2] && a[j - 2] == b[i - 1]) {
                current[j] = std::min(current[j], beforePrevious[j - 2] + 1);
            }
            smallest = std::min(smallest, current[j]);
        }
        if (end < width) current[end] = limit + 1;
        // Adjacent rows differ by one at most, so the row before, which a swap uses, is above the limit too.
        if (smallest > limit + 1) return limit + 1;
        int* const reused = beforePrevious;
        beforePrevious = previous;
        previous = current;
        current = reused;
    }
    return std::min(previous[width - 1], limit + 1);
}

}  // namespace quode
