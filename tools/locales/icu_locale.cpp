// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <unicode/dcfmtsym.h>
#include <unicode/dtfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>
#include <unicode/ures.h>

#include <optional>

#include "tools/locales/icu_locale.h"

namespace quode {
namespace {

// The locale of a process that chose none. Its clock has 24 hours there, as the POSIX locale tells the time.
constexpr const char* posixLocale = "en_US_POSIX@hours=h23";

std::string utf8(const icu::UnicodeString& text) {
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

// The text at an index; empty outside the list.
std::string entry(const icu::UnicodeString* texts, int count, int index) {
    const bool isInside = texts != nullptr && index >= 0 && index < count;
    return isInside ? utf8(texts[index]) : std::string();
}

icu::Locale localeOf(const std::string& name) {
    const std::string language = name.substr(0, name.find_first_of(".@"));
    const bool isPosix = language.empty() || language == "C" || language == "POSIX";
    const icu::Locale locale = icu::Locale::createCanonical(isPosix ? posixLocale : name.c_str());
    // A name that is none, such as "american english", is taken for POSIX, as the C library does.
    const bool isNone = locale.isBogus() || locale.getISO3Language()[0] == '\0';
    return isNone ? icu::Locale::createCanonical(posixLocale) : locale;
}

struct CloseResource {
    void operator()(UResourceBundle* bundle) const { ures_close(bundle); }
};
using Resource = std::unique_ptr<UResourceBundle, CloseResource>;

// A part of a resource; null where there is none.
Resource part(const Resource& whole, const std::string& key) {
    UErrorCode status = U_ZERO_ERROR;
    Resource found(ures_getByKey(whole.get(), key.c_str(), nullptr, &status));
    return U_SUCCESS(status) ? std::move(found) : nullptr;
}

// The letter of the hours that an entry of the table of countries prefers.
std::optional<char16_t> preferredLetter(const Resource& country) {
    const Resource preferred = country ? part(country, "preferred") : nullptr;
    if (!preferred) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    const UChar* const letter = ures_getString(preferred.get(), &length, &status);
    return U_SUCCESS(status) && length == 1 ? std::optional(*letter) : std::nullopt;
}

// The letter of the hours that a country prefers: 'H' or 'k' of 24, 'h' or 'K' of 12; nothing when it is not known.
std::optional<char16_t> preferredHours(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale full(locale);
    full.addLikelySubtags(status);
    const Resource supplement(ures_openDirect(nullptr, "supplementalData", &status));
    if (U_FAILURE(status)) return std::nullopt;
    const Resource hours = part(supplement, "timeData");
    if (!hours) return std::nullopt;
    const std::string country = full.getCountry();
    for (const std::string& key : {full.getLanguage() + ("_" + country), country, std::string("001")}) {
        if (const auto letter = preferredLetter(part(hours, key))) return letter;
    }
    return std::nullopt;
}

// What the pattern generator gives, which takes a millisecond to make.
std::string generatedHourPattern(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status)) return "HH";
    return utf8(generator->getBestPattern("j", status));
}

class IcuLocale : public Locale {
  public:
    explicit IcuLocale(const std::string& name) : locale_(localeOf(name)), symbols_(locale_, status_) {}

    std::string amSymbol() const override { return halfDaySymbol(0); }
    std::string pmSymbol() const override { return halfDaySymbol(1); }

    std::string monthName(int month) const override {
        int count = 0;
        const icu::UnicodeString* names = symbols_.getMonths(count);
        return entry(names, count, month - 1);
    }

    std::string shortMonthName(int month) const override {
        int count = 0;
        const icu::UnicodeString* names = symbols_.getShortMonths(count);
        return entry(names, count, month - 1);
    }

    std::string weekdayName(int weekday) const override {
        return weekdayOf(weekday, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
    }

    std::string shortWeekdayName(int weekday) const override {
        return weekdayOf(weekday, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::ABBREVIATED);
    }

    std::string decimalMark() const override {
        if (!decimalMark_) decimalMark_ = readDecimalMark();
        return *decimalMark_;
    }

    std::string hourPattern() const override {
        UErrorCode status = U_ZERO_ERROR;
        std::string keyword = locale_.getKeywordValue<std::string>("hours", status);
        if (keyword == "h23") return "HH";
        const bool isPlain = locale_.getUnicodeKeywordValue<std::string>("rg", status).empty() && keyword.empty();
        const std::optional<char16_t> hours = isPlain ? preferredHours(locale_) : std::nullopt;
        if (!hours) return generatedHourPattern(locale_);
        return *hours == u'h' || *hours == u'K' ? "h a" : "HH";
    }

    std::string lowerAmSymbol() const override { return lowerCased(amSymbol()); }
    std::string lowerPmSymbol() const override { return lowerCased(pmSymbol()); }

  private:
    static std::string lowerCased(const std::string& text) {
        return utf8(icu::UnicodeString::fromUTF8(text).toLower(icu::Locale::getRoot()));
    }

    std::string weekdayOf(int weekday, icu::DateFormatSymbols::DtContextType context,
                          icu::DateFormatSymbols::DtWidthType width) const {
        int count = 0;
        const icu::UnicodeString* names = symbols_.getWeekdays(count, context, width);
        return weekday < 0 ? "" : entry(names, count, weekday + 1);  // the list begins with an empty text
    }

    std::string readDecimalMark() const {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale latinDigits = locale_;
        latinDigits.setKeywordValue("numbers", "latn", status);
        const icu::DecimalFormatSymbols symbols(latinDigits, status);
        if (U_FAILURE(status)) return ".";
        return utf8(symbols.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol));
    }

    std::string halfDaySymbol(int half) const {
        int count = 0;
        const icu::UnicodeString* symbols = symbols_.getAmPmStrings(count);
        return entry(symbols, count, half);
    }

    UErrorCode status_ = U_ZERO_ERROR;
    icu::Locale locale_;
    icu::DateFormatSymbols symbols_;
    mutable std::optional<std::string> decimalMark_;
};

}  // namespace

std::unique_ptr<Locale> icuLocale(const std::string& name) {
    return std::make_unique<IcuLocale>(name);
}

std::map<std::string, bool> twelveHourCountries() {
    std::map<std::string, bool> countries;
    UErrorCode status = U_ZERO_ERROR;
    const Resource supplement(ures_openDirect(nullptr, "supplementalData", &status));
    const Resource hours = U_SUCCESS(status) ? part(supplement, "timeData") : nullptr;
    if (!hours) return countries;
    for (ures_resetIterator(hours.get()); ures_hasNext(hours.get());) {
        const Resource country(ures_getNextResource(hours.get(), nullptr, &status));
        if (U_FAILURE(status)) break;
        if (const auto letter = preferredLetter(country)) {
            countries[ures_getKey(country.get())] = *letter == u'h' || *letter == u'K';
        }
    }
    return countries;
}

}  // namespace quode
