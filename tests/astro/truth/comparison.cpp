// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/truth/comparison.h"
#include "support/fixtures.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace quode::truth {

double Comparison::rms() const {
    double sum = 0.0;
    for (const double error : errors) sum += error * error;
    return std::sqrt(sum / static_cast<double>(errors.size()));
}

double Comparison::largest() const {
    double most = 0.0;
    for (const double error : errors) most = std::max(most, std::abs(error));
    return most;
}

double Comparison::bias() const {
    double sum = 0.0;
    for (const double error : errors) sum += error;
    return sum / static_cast<double>(errors.size());
}

std::vector<std::vector<double>> rowsOf(const std::string& name) {
    const std::string path = test::fixture("truth/" + std::string(name) + ".csv");
    std::ifstream stream(path);
    std::vector<std::vector<double>> rows;
    bool headerSeen = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (!std::exchange(headerSeen, true)) continue;
        std::vector<double> row;
        for (std::size_t begin = 0; begin <= line.size();) {
            const std::size_t end = std::min(line.find(',', begin), line.size());
            row.push_back(std::strtod(line.substr(begin, end - begin).c_str(), nullptr));
            begin = end + 1;
        }
        rows.push_back(row);
    }
    if (rows.empty()) throw std::runtime_error("no rows in " + path);
    return rows;
}

std::vector<Comparison> allComparisons() {
    std::vector<Comparison> all;
    for (const auto& part : {sunComparisons(), sunEventComparisons(), moonComparisons(), magneticComparisons()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::string accuracyPage(const std::vector<Comparison>& comparisons) {
    std::string page =
        "# How accurate the engine is\n\n"
        "The engine's values compared with published ones. `build/release/bin/accuracy` writes this page from\n"
        "the values in `tests/fixtures/truth`, each with its source; a test keeps it up to date and checks the\n"
        "tolerances. The conformance tests are separate: they compare the engine with its own\n"
        "definitions, to the last digit.\n\n"
        "Beyond 60 degrees of latitude the Sun crosses an altitude slowly: an error of its place becomes a larger\n"
        "one of the time. Events that it passes by less than 3 degrees an hour are left out there. The places of\n"
        "the Sun's events lie within 60 degrees of the meridian of Greenwich.\n\n"
        "| quantity | unit | values | RMS | largest | bias | tolerance | source |\n"
        "| --- | --- | ---: | ---: | ---: | ---: | ---: | --- |\n";
    for (const Comparison& c : comparisons) {
        page += fmt::format("| {} | {} | {} | {:.2g} | {:.2g} | {:+.1g} | {:g} | {} |\n", c.quantity, c.unit,
                            c.errors.size(), c.rms(), c.largest(), c.bias(), c.tolerance, c.source);
    }
    return page;
}

}  // namespace quode::truth
