// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Compares the engine's prayer times with reference values. Needs only the engine and the standard library, so that the
// engine can be tested where nothing else is installed.
#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "astro/FastAstro.h"

namespace {

constexpr double toleranceHours = 1e-7;

// The numbers of the list after a key; none when the key or the list is missing.
std::vector<double> numbersAfter(const std::string& line, const std::string& key) {
    std::vector<double> numbers;
    std::size_t at = line.find('"' + key + "\": [");
    if (at == std::string::npos) return numbers;
    const char* next = line.data() + line.find('[', at) + 1;
    const char* end = line.data() + line.size();
    while (next < end && *next != ']') {
        double number = 0.0;
        const auto [rest, error] = std::from_chars(next, end, number);
        if (error != std::errc()) return {};
        numbers.push_back(number);
        for (next = rest; next < end && (*next == ',' || *next == ' ');) ++next;
    }
    return numbers;
}

int whole(double number) {
    return static_cast<int>(number);
}

// The largest difference of one day's times, in hours; infinite when a line cannot be read.
double largestDifference(const std::string& line) {
    const std::vector<double> in = numbersAfter(line, "in"), times = numbersAfter(line, "times");
    if (in.size() != 13 || times.size() != std::size_t{quode::PrayTimes::slotCount}) return HUGE_VAL;
    quode::FastAstro engine;
    engine.SetCurrentDate(whole(in[12]), whole(in[11]), whole(in[10]));
    engine.SetPlace(in[0], in[1], in[2], whole(in[3]), whole(in[4]), whole(in[5]), whole(in[6]), whole(in[7]), in[8],
                    whole(in[9]));
    const quode::Place place = engine.CalculatePrayTimes();
    double largest = 0.0;
    for (std::size_t slot = 0; slot < times.size(); ++slot) {
        largest = std::max(largest, std::abs(times[slot] - place.TodayPrayTimes.slot(static_cast<int>(slot))));
    }
    return largest;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "engine_only VECTORS\n";
        return 2;
    }
    std::ifstream file(arguments[1]);
    int days = 0, wrong = 0;
    double largest = 0.0;
    for (std::string line; std::getline(file, line);) {
        if (line.find("\"CalculatePrayTimes\"") == std::string::npos) continue;
        const double difference = largestDifference(line);
        ++days;
        largest = std::max(largest, difference);
        if (difference > toleranceHours) {
            ++wrong;
            std::cerr << "differs by " << difference << " h: " << line.substr(0, 120) << '\n';
        }
    }
    std::cout << days << " days, largest difference " << largest << " h\n";
    return days > 0 && wrong == 0 ? 0 : 1;
}
