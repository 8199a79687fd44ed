// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/columns.h"

#include <algorithm>
#include <array>
#include <span>

#include "conventions/Method.h"
#include "data/name_folding.h"
#include "texts/translation.h"
#include "texts/utf8.h"

namespace quode::timetables {
namespace {

struct Heading {
    std::string_view name;
    Column column;
};

// As `plainText` writes them.
constexpr Heading headings[] = {
    {"fajr", Column::fajr},
    {"fadjr", Column::fajr},
    {"fecr", Column::fajr},
    {"subh", Column::fajr},
    {"sobh", Column::fajr},
    {"subuh", Column::fajr},
    {"shubuh", Column::fajr},
    {"الفجر", Column::fajr},
    {"فجر", Column::fajr},
    {"imsak", Column::imsak},
    {"imsaak", Column::imsak},
    {"imsaq", Column::imsak},
    {"الامساك", Column::imsak},
    {"sabah", Column::sabah},
    {"sunrise", Column::sunrise},
    {"gunes", Column::sunrise},
    {"gun dogumu", Column::sunrise},
    {"shuruq", Column::sunrise},
    {"shurooq", Column::sunrise},
    {"shuruk", Column::sunrise},
    {"syuruk", Column::sunrise},
    {"syuruq", Column::sunrise},
    {"terbit", Column::sunrise},
    {"chourouk", Column::sunrise},
    {"chorouk", Column::sunrise},
    {"chourouq", Column::sunrise},
    {"lever", Column::sunrise},
    {"lever du soleil", Column::sunrise},
    {"lever soleil", Column::sunrise},
    {"الشروق", Column::sunrise},
    {"شروق", Column::sunrise},
    {"dhuhr", Column::dhuhr},
    {"zuhr", Column::dhuhr},
    {"duhr", Column::dhuhr},
    {"thuhr", Column::dhuhr},
    {"dhohr", Column::dhuhr},
    {"dohr", Column::dhuhr},
    {"zohr", Column::dhuhr},
    {"zohor", Column::dhuhr},
    {"zuhur", Column::dhuhr},
    {"dzuhur", Column::dhuhr},
    {"ogle", Column::dhuhr},
    {"الظهر", Column::dhuhr},
    {"ظهر", Column::dhuhr},
    {"asr", Column::asr},
    {"asar", Column::asr},
    {"ashar", Column::asr},
    {"ikindi", Column::asr},
    {"asr standard", Column::asr},
    {"asr shafi", Column::asr},
    {"asr shafii", Column::asr},
    {"asr 1", Column::asr},
    {"asr1", Column::asr},
    {"asr i evvel", Column::asr},
    {"العصر", Column::asr},
    {"عصر", Column::asr},
    {"asr hanafi", Column::asrHanafi},
    {"hanafi asr", Column::asrHanafi},
    {"asr 2", Column::asrHanafi},
    {"asr2", Column::asrHanafi},
    {"asr i sani", Column::asrHanafi},
    {"asr sani", Column::asrHanafi},
    {"maghrib", Column::maghrib},
    {"magrib", Column::maghrib},
    {"maghreb", Column::maghrib},
    {"aksam", Column::maghrib},
    {"المغرب", Column::maghrib},
    {"مغرب", Column::maghrib},
    {"isha", Column::isha},
    {"ishaa", Column::isha},
    {"isha a", Column::isha},
    {"icha", Column::isha},
    {"ichaa", Column::isha},
    {"yatsi", Column::isha},
    {"isyak", Column::isha},
    {"isya", Column::isha},
    {"العشاء", Column::isha},
    {"عشاء", Column::isha},
    {"date", Column::date},
    {"tarih", Column::date},
    {"tarikh", Column::date},
    {"tanggal", Column::date},
    {"miladi", Column::date},
    {"miladi tarih", Column::date},
    {"gregorian date", Column::date},
    {"التاريخ", Column::date},
    {"تاريخ", Column::date},
    {"day", Column::day},
    {"gun", Column::day},
    {"jour", Column::day},
    {"hari", Column::day},
    {"اليوم", Column::day},
    {"month", Column::month},
    {"ay", Column::month},
    {"mois", Column::month},
    {"bulan", Column::month},
    {"الشهر", Column::month},
    {"year", Column::year},
    {"yil", Column::year},
    {"annee", Column::year},
    {"tahun", Column::year},
    {"السنة", Column::year},
};

constexpr std::string_view iqamaWords[] = {
    "iqama", "iqamah", "iqamat",       "iqaama", "iqaamah", "ikama", "jamaat", "jamaah", "jama ah", "jama at",
    "jamat", "jama",   "congregation", "cemaat", "jemaah",  "kamet", "ikamet", "kamat",  "الاقامة", "اقامة"};
constexpr std::string_view fillers[] = {"adhan", "azan",   "ezan",   "athan",  "begin",  "begins",
                                        "start", "time",   "vakti",  "waktu",  "namazi", "salat",
                                        "salah", "prayer", "mosque", "masjid", "صلاة",   "اذان"};
constexpr std::string_view hijriWords[] = {"hijri", "hicri", "hijrah", "hijriah", "islamic", "هجري", "الهجري"};

struct MonthName {
    std::string_view name;
    int month;
};

// The first letters are enough where they are unique.
constexpr MonthName months[] = {
    {"january", 1}, {"jan", 1},      {"ocak", 1},      {"oca", 1},       {"janvier", 1},   {"januari", 1},
    {"يناير", 1},   {"february", 2}, {"feb", 2},       {"subat", 2},     {"sub", 2},       {"fevrier", 2},
    {"fev", 2},     {"februari", 2}, {"فبراير", 2},    {"march", 3},     {"mar", 3},       {"mart", 3},
    {"mars", 3},    {"mac", 3},      {"maret", 3},     {"مارس", 3},      {"april", 4},     {"apr", 4},
    {"nisan", 4},   {"nis", 4},      {"avril", 4},     {"avr", 4},       {"ابريل", 4},     {"may", 5},
    {"mayis", 5},   {"mai", 5},      {"mei", 5},       {"مايو", 5},      {"june", 6},      {"jun", 6},
    {"haziran", 6}, {"haz", 6},      {"juin", 6},      {"juni", 6},      {"يونيو", 6},     {"july", 7},
    {"jul", 7},     {"temmuz", 7},   {"tem", 7},       {"juillet", 7},   {"julai", 7},     {"juli", 7},
    {"يوليو", 7},   {"august", 8},   {"aug", 8},       {"agustos", 8},   {"agu", 8},       {"aout", 8},
    {"ogos", 8},    {"agustus", 8},  {"اغسطس", 8},     {"september", 9}, {"sep", 9},       {"sept", 9},
    {"eylul", 9},   {"eyl", 9},      {"septembre", 9}, {"سبتمبر", 9},    {"october", 10},  {"oct", 10},
    {"ekim", 10},   {"eki", 10},     {"octobre", 10},  {"oktober", 10},  {"اكتوبر", 10},   {"november", 11},
    {"nov", 11},    {"kasim", 11},   {"kas", 11},      {"novembre", 11}, {"نوفمبر", 11},   {"december", 12},
    {"dec", 12},    {"aralik", 12},  {"ara", 12},      {"decembre", 12}, {"disember", 12}, {"desember", 12},
    {"ديسمبر", 12}, {"janv", 1},     {"fevr", 2},      {"juil", 7},      {"okt", 10},      {"dis", 12},
    {"des", 12},
};

/// What stands for a letter of Arabic in a text without its marks; nothing where it stays.
std::optional<std::string> plainArabic(char32_t letter) {
    constexpr std::u32string_view alefs = U"أإآٱ";
    const auto digit = [letter](char32_t zero) { return std::string(1, char('0' + int(letter - zero))); };
    if (alefs.find(letter) != std::u32string_view::npos) return "ا";
    if (letter >= U'٠' && letter <= U'٩') return digit(U'٠');
    if (letter >= U'۰' && letter <= U'۹') return digit(U'۰');
    const bool isMark = (letter >= U'\u064B' && letter <= U'\u0652') || letter == U'\u0640';
    return isMark ? std::optional<std::string>("") : std::nullopt;
}

std::string withoutArabicMarks(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        std::string_view rest = text;
        const std::optional<char32_t> letter = takeCodePoint(rest);
        const std::string_view written = text.substr(0, text.size() - rest.size());
        plain += letter ? plainArabic(*letter).value_or(std::string(written)) : std::string(written);
        text = rest;
    }
    return plain;
}

/// Takes a word out of a plain text.
/// @return whether it was there
bool takeWord(std::string& text, std::string_view word) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        const bool begins = at == 0 || text[at - 1] == ' ', ends = end == text.size() || text[end] == ' ';
        if (!begins || !ends) continue;
        text = plainText(text.substr(0, at) + text.substr(end));
        return true;
    }
    return false;
}

bool hasWord(std::string_view text, std::span<const std::string_view> words) {
    std::string plain = plainText(text);
    return std::ranges::any_of(words, [&](std::string_view word) { return takeWord(plain, word); });
}

std::optional<Column> exactColumn(std::string_view text) {
    const auto* found = std::ranges::find(headings, text, &Heading::name);
    return found == std::end(headings) ? std::nullopt : std::optional(found->column);
}

}  // namespace

std::string plainText(std::string_view text) {
    const std::string folded = foldedName(withoutArabicMarks(text));
    std::string plain;
    for (const char c : folded) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isLetter = byte >= 0x80 || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z');
        if (isLetter) plain += c;
        if (!isLetter && !plain.empty() && plain.back() != ' ') plain += ' ';
    }
    while (!plain.empty() && plain.back() == ' ') plain.pop_back();
    return plain;
}

std::optional<Column> columnOf(std::string_view heading) {
    std::string text = plainText(heading);
    if (const auto column = exactColumn(text)) return column;
    bool isIqama = false;
    for (const std::string_view word : iqamaWords) isIqama = takeWord(text, word) || isIqama;
    for (const std::string_view word : fillers) takeWord(text, word);
    const auto column = exactColumn(text);
    if (!isIqama || !column) return column;
    if (*column > Column::isha) return std::nullopt;
    return static_cast<Column>(static_cast<int>(Column::fajrIqama) + static_cast<int>(*column));
}

std::string headingOf(Column column) {
    if (column == Column::asrHanafi) return "asr hanafi";
    if (column == Column::imsak || column == Column::sabah) return nameOf(column);
    const bool isIqama = column >= Column::fajrIqama;
    const int prayer = static_cast<int>(column) - (isIqama ? static_cast<int>(Column::fajrIqama) : 0);
    const std::string name(conventions::nameOf(prayerAt(static_cast<std::size_t>(prayer))));
    return isIqama ? name + " iqama" : name;
}

bool namesCongregation(std::string_view text) {
    return hasWord(text, iqamaWords);
}

bool namesHijri(std::string_view text) {
    return hasWord(text, hijriWords);
}

std::string nameOf(Column column) {
    if (column <= Column::isha) return std::string(conventions::nameOf(prayerAt(static_cast<std::size_t>(column))));
    if (column >= Column::fajrIqama && column <= Column::ishaIqama) {
        const int prayer = static_cast<int>(column) - static_cast<int>(Column::fajrIqama);
        return _("iqama of {}", conventions::nameOf(prayerAt(static_cast<std::size_t>(prayer))));
    }
    constexpr std::array<const char*, 6> others = {"imsak", "sabah", "date", "day", "month", "year"};
    if (column == Column::asrHanafi) return _("asr (Hanafi)");
    return others.at(static_cast<std::size_t>(column) - static_cast<std::size_t>(Column::imsak));
}

std::optional<int> monthNamed(std::string_view name) {
    const std::string text = plainText(name);
    const auto* found = std::ranges::find(months, text, &MonthName::name);
    return found == std::end(months) ? std::nullopt : std::optional(found->month);
}

}  // namespace quode::timetables
