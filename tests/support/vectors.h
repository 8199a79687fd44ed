// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quode::test {

/// One reference value of an independent implementation: an operation, its arguments and its result.
/// Booleans become 0 and 1, the text "nan" a NaN; other texts are in the `texts` lists at the same index.
struct Vector {
    std::string op;
    std::vector<double> in;
    std::vector<std::string> inTexts;
    std::vector<double> out;
    std::vector<std::string> outTexts;
    std::map<std::string, std::vector<double>> members;  ///< filled where the result is an object

    /// A readable "op(arguments)" for failure messages.
    std::string describe() const;
};

/// A number of a vector that is an integer.
inline int whole(double number) {
    return static_cast<int>(number);
}

/// All vectors of tests/fixtures/vectors/FILE.json whose operation is `op`. Never empty: a missing operation throws.
std::vector<Vector> vectorsOf(std::string_view file, std::string_view op);

}  // namespace quode::test
