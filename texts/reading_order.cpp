// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/reading_order.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>
#include <vector>

#include "texts/translation.h"
#include "texts/utf8.h"

namespace quode {
namespace {

constexpr std::string_view openingMark = "\u2068", closingMark = "\u2069";

bool opensMarked(char32_t c) {
    return c >= 0x2066 && c <= 0x2068;
}

bool closesMarked(char32_t c) {
    return c == 0x2069;
}

bool isDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

bool isAround(char32_t c) {
    constexpr std::u32string_view signs = U"()\"«»“”„,;:.!?،؛؟";
    return signs.find(c) != std::u32string_view::npos;
}

bool isRightLetter(char32_t c) {
    constexpr std::array<std::pair<char32_t, char32_t>, 5> ranges{
        {{0x590, 0x8FF}, {0xFB1D, 0xFDFF}, {0xFE70, 0xFEFE}, {0x10800, 0x10FFF}, {0x1E800, 0x1EFFF}}};
    const auto holds = [c](const auto& range) { return c >= range.first && c <= range.second; };
    return !isAround(c) && std::ranges::any_of(ranges, holds);
}

bool isLeftLetter(char32_t c) {
    if (c < 0xC0) return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    const bool isSign = c == 0xD7 || c == 0xF7 || (c >= 0x2000 && c < 0x2C00) || (c >= 0x3000 && c < 0x3040);
    return !isSign && !isAround(c) && !isRightLetter(c);
}

template <typename Predicate>
bool hasAny(std::string_view text, Predicate predicate) {
    while (!text.empty()) {
        if (predicate(takeCodePoint(text).value_or(U' '))) return true;
    }
    return false;
}

std::string marked(std::string_view text) {
    return std::string(openingMark).append(text).append(closingMark);
}

// --- the parts from left to right within a line from right to left

/// What stands between two blanks. Marks and what they enclose are one sign of it.
struct Word {
    enum class Kind {
        left,    ///< with letters from left to right
        number,  ///< digits and signs
        value,   ///< letters from right to left within marks
        other,   ///< a word of the line's own direction, or punctuation
    };
    Kind kind = Kind::other;
    std::size_t begin = 0, end = 0;          ///< in the line
    std::size_t coreBegin = 0, coreEnd = 0;  ///< without the punctuation around it
    bool isPlain = true;                     ///< a number such as "06:06", which keeps its order in every line
};

void takeWord(std::string_view line, Word& word) {
    bool hasLeft = false, hasRight = false, hasValue = false, hasDigit = false;
    int depth = 0;
    word.coreBegin = word.coreEnd = word.end;
    for (std::string_view rest = line.substr(word.begin, word.end - word.begin); !rest.empty();) {
        const std::size_t at = word.end - rest.size();
        const char32_t c = takeCodePoint(rest).value_or(U' ');
        const bool isWithin = depth > 0 || opensMarked(c);
        if (opensMarked(c)) ++depth;
        if (closesMarked(c)) depth = std::max(depth - 1, 0);
        hasLeft = hasLeft || isLeftLetter(c);
        hasDigit = hasDigit || isDigit(c);
        if (isRightLetter(c)) (isWithin ? hasValue : hasRight) = true;
        word.isPlain = word.isPlain && (isDigit(c) || c == ':' || c == '.' || c == ',');
        if (!isWithin && isAround(c)) continue;
        word.coreBegin = std::min(word.coreBegin, at);
        word.coreEnd = word.end - rest.size();
    }
    using Kind = Word::Kind;
    word.kind = hasRight   ? Kind::other
                : hasValue ? Kind::value
                : hasLeft  ? Kind::left
                : hasDigit ? Kind::number
                           : Kind::other;
}

std::vector<Word> wordsOf(std::string_view line) {
    std::vector<Word> words;
    int depth = 0;
    bool isInWord = false;
    for (std::string_view rest = line; !rest.empty();) {
        const std::size_t at = line.size() - rest.size();
        const char32_t c = takeCodePoint(rest).value_or(U' ');
        if (opensMarked(c)) ++depth;
        if (closesMarked(c)) depth = std::max(depth - 1, 0);
        if (c == 0x1B) rest.remove_prefix(std::min(rest.size(), rest.find('m') + 1));  // an emphasis of the terminal
        const bool isBlank = c == 0x1B || (c == ' ' && depth == 0);
        if (!isBlank && !isInWord) words.push_back({.begin = at});
        if (!isBlank) words.back().end = line.size() - rest.size();
        isInWord = !isBlank;
    }
    for (Word& word : words) takeWord(line, word);
    return words;
}

/// Words in a row that belong together.
struct Part {
    std::size_t begin = 0, end = 0;
    bool hasLetters = false;
    bool isCommand = false;  ///< the values of which belong to it in any language
    bool isPlain = true;     ///< needs no marks
};

bool beginsCommand(std::string_view word) {
    return word == "quode" || word.starts_with("quode-") || word == "systemctl" || word.starts_with("--");
}

std::vector<Part> partsOf(std::string_view line) {
    std::vector<Part> parts;
    const Word* before = nullptr;  // the last word of the part that goes on
    for (const Word& word : wordsOf(line)) {
        using Kind = Word::Kind;
        const bool follows = before != nullptr && word.begin == before->end + 1 && line[before->end] == ' ' &&
                             before->coreEnd == before->end && word.coreBegin == word.begin;
        before = nullptr;
        if (word.kind == Kind::other) continue;
        Part* const last = follows ? &parts.back() : nullptr;
        const bool isJoined = last != nullptr && (word.kind == Kind::left ||
                                                  (word.kind == Kind::number && last->hasLetters) || last->isCommand);
        if (!isJoined && word.kind == Kind::value) continue;
        const std::string_view core = line.substr(word.coreBegin, word.coreEnd - word.coreBegin);
        if (!isJoined) parts.push_back({.begin = word.coreBegin, .isCommand = beginsCommand(core)});
        Part& part = parts.back();
        const bool isMarkedAlready = !isJoined && core.starts_with(openingMark) && core.ends_with(closingMark) &&
                                     core.find(openingMark, 1) == std::string_view::npos;
        part.end = word.coreEnd;
        part.hasLetters = part.hasLetters || word.kind == Kind::left;
        part.isPlain = !isJoined && (isMarkedAlready || (word.kind == Kind::number && word.isPlain));
        before = &word;
    }
    return parts;
}

std::size_t countOf(std::string_view text, std::string_view mark) {
    std::size_t count = 0;
    for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at + mark.size()))
        ++count;
    return count;
}

std::string repeated(std::string_view mark, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += mark;
    return text;
}

std::string lineInOrder(std::string_view line) {
    if (!hasAny(line, isRightLetter)) return std::string(line);
    std::string ordered;
    std::size_t done = 0;
    for (const Part& part : partsOf(line)) {
        if (part.isPlain) continue;
        ordered.append(line.substr(done, part.begin - done));
        ordered += marked(line.substr(part.begin, part.end - part.begin));
        done = part.end;
    }
    return ordered.append(line.substr(done));
}

}  // namespace

// A part that was wrapped is kept together on each of its lines.
std::string inReadingOrder(std::string_view text) {
    if (!isRightToLeft(languageInUse())) return std::string(text);
    std::string ordered;
    std::size_t open = 0;
    for (;;) {
        const std::size_t end = text.find('\n');
        std::string line = repeated(openingMark, open).append(text.substr(0, end));
        const std::size_t opened = countOf(line, openingMark), closed = countOf(line, closingMark);
        open = opened > closed ? opened - closed : 0;
        ordered += lineInOrder(line += repeated(closingMark, open));
        if (end == std::string_view::npos) return ordered;
        ordered += '\n';
        text.remove_prefix(end + 1);
    }
}

std::string withPartsTogether(std::string_view text) {
    if (!hasAny(text, isRightLetter) || hasAny(text, opensMarked)) return std::string(text);
    if (!hasAny(text, isLeftLetter)) return marked(text);
    constexpr std::array<std::string_view, 3> separators{" / ", " : ", ", "};
    std::string together;
    while (!text.empty()) {
        std::size_t length = text.size(), separator = 0;
        for (const std::string_view each : separators) {
            const std::size_t at = text.find(each);
            if (at < length) std::tie(length, separator) = std::pair(at, each.size());
        }
        const std::string_view part = text.substr(0, length);
        together += hasAny(part, isRightLetter) ? marked(part) : std::string(part);
        together.append(text.substr(length, separator));
        text.remove_prefix(length + separator);
    }
    return together;
}

}  // namespace quode
