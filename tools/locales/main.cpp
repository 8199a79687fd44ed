// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode-build-locales locales|widths FILE: writes what the programs need of ICU as a source file: the habits of all locales, or
// the characters that take no column of a terminal, or two.
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/ures.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tools/locales/icu_locale.h"

using namespace quode;

namespace {

/// Texts after each other, each once; a text is known by its offset.
class TextPool {
  public:
    std::size_t offsetOf(const std::string& text) {
        const auto [entry, isNew] = offsets_.try_emplace(text, size_);
        if (isNew) {
            order_.push_back(text);
            size_ += text.size() + 1;
        }
        return entry->second;
    }

    const std::vector<std::string>& texts() const { return order_; }

  private:
    std::map<std::string, std::size_t> offsets_;
    std::vector<std::string> order_;
    std::size_t size_ = 0;
};

std::string quoted(const std::string& text) {
    std::string literal = "\"";
    for (const char c : text) {
        char octal[5];
        std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned char>(c));
        literal += octal;
    }
    return literal + "\\000\"";
}

std::set<std::string> languagesAndLocales() {
    std::set<std::string> names{"POSIX"};
    UErrorCode status = U_ZERO_ERROR;
    UEnumeration* const available = uloc_openAvailableByType(ULOC_AVAILABLE_WITH_LEGACY_ALIASES, &status);
    while (const char* const name = uenum_next(available, nullptr, &status)) names.insert(name);
    uenum_close(available);
    for (const char* const* language = uloc_getISOLanguages(); *language != nullptr; ++language)
        names.insert(*language);
    return names;
}

template <typename Name>
std::string list(TextPool& pool, int first, int count, Name name) {
    std::string offsets = "{";
    for (int i = first; i < first + count; ++i) offsets += std::to_string(pool.offsetOf(name(i))) + ",";
    return offsets + "},";
}

std::string habitsOf(const Locale& locale, TextPool& pool) {
    std::string record = "{" + list(pool, 1, 12, [&](int i) { return locale.monthName(i); }) +
                         list(pool, 1, 12, [&](int i) { return locale.shortMonthName(i); }) +
                         list(pool, 0, 7, [&](int i) { return locale.weekdayName(i); }) +
                         list(pool, 0, 7, [&](int i) { return locale.shortWeekdayName(i); });
    for (const std::string& text :
         {locale.amSymbol(), locale.pmSymbol(), locale.lowerAmSymbol(), locale.lowerPmSymbol(), locale.decimalMark()}) {
        record += std::to_string(pool.offsetOf(text)) + ",";
    }
    return record + "}";
}

const char* boolean(bool value) {
    return value ? "true" : "false";
}

void writeLocales(std::ofstream& file) {
    TextPool pool;
    std::map<std::string, std::size_t> numbers;  // of habits
    std::string habits, names, countries;
    for (const std::string& name : languagesAndLocales()) {
        const auto locale = icuLocale(name);
        const auto [entry, isNew] = numbers.try_emplace(habitsOf(*locale, pool), numbers.size());
        if (isNew) habits += entry->first + ",\n";
        const bool hasSign = locale->hourPattern().find('a') != std::string::npos;
        names += "{" + std::to_string(pool.offsetOf(name)) + "," + std::to_string(entry->second) + "," +
                 boolean(hasSign) + "},\n";
    }
    for (const auto& [country, hasSign] : twelveHourCountries()) {
        countries += "{" + std::to_string(pool.offsetOf(country)) + "," + boolean(hasSign) + "},\n";
    }
    file << "#include \"platform/locale_table.h\"\n"
            "namespace quode::locale_table {\n"
            "static constexpr char textBytes[] =\n";
    for (const std::string& text : pool.texts()) file << quoted(text) << '\n';
    file << ";\nstatic constexpr Habits allHabits[] = {\n"
         << habits << "};\n"
         << "static constexpr Name allNames[] = {\n"
         << names << "};\n"
         << "static constexpr Country allCountries[] = {\n"
         << countries << "};\n"
         << "constinit const char* const texts = textBytes;\n"
            "constinit const std::span<const Habits> habits = allHabits;\n"
            "constinit const std::span<const Name> names = allNames;\n"
            "constinit const std::span<const Country> countries = allCountries;\n"
            "}  // namespace quode::locale_table\n";
}

int widthOf(UChar32 character) {
    const auto type = u_charType(character);
    if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || type == U_FORMAT_CHAR) return 0;
    const int eastAsian = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return eastAsian == U_EA_WIDE || eastAsian == U_EA_FULLWIDTH ? 2 : 1;
}

/// The runs of characters that do not take one column.
void writeWidths(std::ofstream& file) {
    file << "#include \"texts/character_width.h\"\n"
            "namespace quode {\n"
            "static constexpr WidthRange allRanges[] = {\n";
    UChar32 first = 0;
    for (UChar32 character = 1; character <= UCHAR_MAX_VALUE + 1; ++character) {
        const int width = widthOf(first);
        if (character <= UCHAR_MAX_VALUE && widthOf(character) == width) continue;
        if (width != 1) file << "{" << first << "," << character - 1 << "," << width << "},\n";
        first = character;
    }
    file << "};\nconstinit const std::span<const WidthRange> widthRanges = allRanges;\n}  // namespace quode\n";
}

}  // namespace

int main(int count, char** values) {
    const std::string_view what = count == 3 ? values[1] : "";
    if (what != "locales" && what != "widths") {
        std::fputs("Usage: quode-build-locales locales|widths FILE\n", stderr);
        return 2;
    }
    std::ofstream file(values[2], std::ios::binary);
    what == "locales" ? writeLocales(file) : writeWidths(file);
    file.close();
    if (file) return 0;
    std::fprintf(stderr, "quode-build-locales: %s cannot be written.\n", values[2]);
    return 1;
}
