// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/coordinates.h"

#include <cstdlib>

namespace quode {

std::string sexagesimalCoordinate(long hundredThousandths) {
    const long milliseconds = std::labs(hundredThousandths) * 36;  // of arc; 36 in a hundred-thousandth of a degree
    const long wholeSeconds = milliseconds / 1000;
    std::string text = hundredThousandths < 0 ? "-" : "";
    text += std::to_string(wholeSeconds / 3600) + ";" + std::to_string(wholeSeconds / 60 % 60) + ";" +
            std::to_string(wholeSeconds % 60);
    std::string fraction = std::to_string(1000 + milliseconds % 1000).substr(1);
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    return fraction.empty() ? text : text + "." + fraction;
}

std::string decipheredCoordinate(std::string text) {
    return text;
}

}  // namespace quode
