// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace quode::truth {

/// The engine's values of one quantity compared with published ones.
struct Comparison {
    std::string quantity;
    std::string unit;
    std::string source;          ///< who published the values
    double tolerance = 0.0;      ///< the largest allowed error
    std::vector<double> errors;  ///< engine less published

    double rms() const;
    double largest() const;  ///< absolute
    double bias() const;     ///< mean
};

/// The numeric rows of tests/fixtures/truth/NAME.csv; lines that begin with # and the header are left out, texts count
/// as 0.
/// @throw std::exception  when the file cannot be read or has no rows
std::vector<std::vector<double>> rowsOf(const std::string& name);

/// The comparisons of each part of the engine.
std::vector<Comparison> sunComparisons();
std::vector<Comparison> sunEventComparisons();
std::vector<Comparison> moonComparisons();
std::vector<Comparison> magneticComparisons();

/// All comparisons, in the order of the table in docs/accuracy.md.
std::vector<Comparison> allComparisons();

/// The text of docs/accuracy.md.
std::string accuracyPage(const std::vector<Comparison>& comparisons);

}  // namespace quode::truth
