// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// How well a name fits a search; used by the search and by the builder of the city database.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "data/CityMatch.h"
#include "data/city_database_schema.h"

namespace quode {

/// The fit of a name that begins with the searched text.
struct NameFit {
    double fit = 0.0;  ///< in powers of ten of population: an exact name outweighs one a thousand times as populous
    CityMatch match = CityMatch::exact;
    bool firstWords = false;  ///< the text is the name, or the name continues with another word
};

/// The fit of a name that begins with the searched text.
/// @param folded,wanted  as by `foldedName`
inline NameFit fitOfName(std::string_view folded, NameKind kind, std::string_view wanted) {
    constexpr double exactName = 3.0, firstWords = 1.5, firstLetters = 0.0, laterWords = -0.5, laterLetters = -2.0;
    const bool later = kind == NameKind::ownWord || kind == NameKind::otherWord;
    const bool whole = folded.size() == wanted.size();
    const bool wholeWords = whole || folded[wanted.size()] == ' ';
    if (later) return {wholeWords ? laterWords : laterLetters, CityMatch::word, false};
    return {whole        ? exactName
            : wholeWords ? firstWords
                         : firstLetters,
            whole ? CityMatch::exact : CityMatch::prefix, wholeWords};
}

/// The fit of a name with typing mistakes.
inline NameFit fitOfMistakes(int mistakes) {
    constexpr double perMistake = -2.0;
    return {mistakes * perMistake, CityMatch::typo, false};
}

/// The rank of a place: larger is better.
inline double scoreOf(const NameFit& name, std::int64_t population) {
    return name.fit + std::log10(static_cast<double>(std::max<std::int64_t>(population, 0)) + 1.0);
}

/// For a text with which more names than this begin, the table BEGINNING has the best `keptForBeginning` places.
inline constexpr std::size_t manyNames = 1500;
inline constexpr std::size_t keptForBeginning = 50;

}  // namespace quode
