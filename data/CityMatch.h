// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// How a place was found by a search.
enum class CityMatch {
    exact,   ///< the text is one of its names
    prefix,  ///< one of its names begins with the text
    word,    ///< a later word of one of its names begins with the text
    typo,    ///< one of its names differs by one or two typing mistakes
};

}  // namespace quode
