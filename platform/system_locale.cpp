// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/locale_table.h"
#include "platform/system_platform.h"

namespace quode {
namespace {

namespace table = locale_table;

constexpr std::string_view posix = "POSIX";

std::string_view textAt(std::uint32_t offset) {
    return table::texts + offset;
}

template <typename Entry>
const Entry* find(std::span<const Entry> entries, std::string_view text) {
    const auto found =
        std::lower_bound(entries.begin(), entries.end(), text,
                         [](const Entry& entry, std::string_view key) { return textAt(entry.text) < key; });
    return found != entries.end() && textAt(found->text) == text ? &*found : nullptr;
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string with(std::string text, char (*change)(char)) {
    for (char& c : text) c = change(c);
    return text;
}

/// The parts of a name, in upper and lower case as in the table.
struct NameParts {
    std::string language, script, country, variant;
    std::optional<bool> hasTwelveHours;  ///< from "@hours=h12" and similar

    std::string joined(bool withScript, bool withCountry, bool withVariant) const {
        std::string name = language;
        if (withScript && !script.empty()) name += "_" + script;
        if (withCountry && !country.empty()) name += "_" + country;
        if (withVariant && !variant.empty()) name += "_" + variant;
        return name;
    }
};

void readSubtag(const std::string& tag, NameParts& parts) {
    const bool isWord = std::all_of(tag.begin(), tag.end(), &isLetter);
    if (isWord && tag.size() == 4 && parts.country.empty()) {
        parts.script = with(tag, &lower);
        parts.script[0] = upper(tag[0]);
    } else if ((isWord && tag.size() == 2) || (!isWord && tag.size() == 3)) {
        parts.country = with(tag, &upper);
    } else if (!tag.empty()) {
        parts.variant = with(tag, &upper);
    }
}

/// Reads the part after "@": a modifier of the C library, or a keyword of ICU.
void readModifier(const std::string& modifier, NameParts& parts) {
    if (modifier == "latin")
        parts.script = "Latn";
    else if (modifier == "cyrillic")
        parts.script = "Cyrl";
    else if (modifier == "hours=h11" || modifier == "hours=h12")
        parts.hasTwelveHours = true;
    else if (modifier == "hours=h23" || modifier == "hours=h24")
        parts.hasTwelveHours = false;
    else if (modifier.find('=') == std::string::npos)
        parts.variant = with(modifier, &upper);
}

NameParts partsOf(const std::string& name) {
    NameParts parts;
    const std::size_t end = std::min(name.find_first_of(".@"), name.size());
    for (std::size_t begin = 0; begin <= end;) {
        const std::size_t next = std::min(name.find_first_of("_-", begin), end);
        const std::string tag = name.substr(begin, next - begin);
        if (begin == 0)
            parts.language = with(tag, &lower);
        else
            readSubtag(tag, parts);
        begin = next + 1;
    }
    if (const std::size_t at = name.find('@'); at != std::string::npos) readModifier(name.substr(at + 1), parts);
    return parts;
}

/// True when hours have an AM/PM symbol, also where the table lacks the pair of language and country.
bool hasTwelveHours(const NameParts& parts, const table::Name& found) {
    if (parts.hasTwelveHours) return *parts.hasTwelveHours;
    if (parts.country.empty() || textAt(found.text).ends_with("_" + parts.country)) return found.hasTwelveHours;
    for (const std::string& key : {parts.language + "_" + parts.country, parts.country, std::string("001")}) {
        if (const table::Country* const country = find(table::countries, key)) return country->hasTwelveHours;
    }
    return false;
}

/// The best entry for a name: tried without variant, country and script; else that of POSIX.
const table::Name& nearest(const NameParts& parts) {
    for (const std::string& name :
         {parts.joined(true, true, true), parts.joined(true, true, false), parts.joined(false, true, false),
          parts.joined(true, false, false), parts.joined(false, false, false)}) {
        if (const table::Name* const found = find(table::names, name)) return *found;
    }
    return *find(table::names, posix);
}

class TabledLocale : public Locale {
  public:
    explicit TabledLocale(const NameParts& parts) : TabledLocale(parts, nearest(parts)) {}

    std::string amSymbol() const override { return std::string(textAt(habits_.am)); }
    std::string pmSymbol() const override { return std::string(textAt(habits_.pm)); }
    std::string lowerAmSymbol() const override { return std::string(textAt(habits_.lowerAm)); }
    std::string lowerPmSymbol() const override { return std::string(textAt(habits_.lowerPm)); }
    std::string monthName(int month) const override { return entry(habits_.months, month - 1); }
    std::string shortMonthName(int month) const override { return entry(habits_.shortMonths, month - 1); }
    std::string weekdayName(int weekday) const override { return entry(habits_.weekdays, weekday); }
    std::string shortWeekdayName(int weekday) const override { return entry(habits_.shortWeekdays, weekday); }
    std::string decimalMark() const override { return std::string(textAt(habits_.decimalMark)); }
    std::string hourPattern() const override { return hasTwelveHours_ ? "h a" : "HH"; }

  private:
    TabledLocale(const NameParts& parts, const table::Name& name)
        : habits_(table::habits[name.habits]), hasTwelveHours_(hasTwelveHours(parts, name)) {}

    static std::string entry(std::span<const std::uint32_t> texts, int index) {
        const bool isInside = index >= 0 && index < static_cast<int>(texts.size());
        return isInside ? std::string(textAt(texts[static_cast<std::size_t>(index)])) : std::string();
    }

    const table::Habits& habits_;
    bool hasTwelveHours_;
};

}  // namespace

std::string localeNameFrom(const Environment& environment) {
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (auto name = nonEmpty(environment, variable)) return *name;
    }
    return std::string(posix);
}

std::shared_ptr<Locale> systemLocale(const std::string& name) {
    return std::make_shared<TabledLocale>(partsOf(name.empty() ? localeNameFrom(processEnvironment()) : name));
}

}  // namespace quode
