// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The long form of the simulated years: writes the figures as a table for docs/reliability.md.
//
//   simulated_years [YEARS]    city-years of each kind of fault; four without an argument
#include <fmt/format.h>

#include <cstdlib>

#include "Simulation.h"
#include "common/numbers.h"

namespace quode::test {
namespace {

constexpr std::pair<const char*, const char*> places[]{{"Istanbul", "Berlin"},    {"New York", "London"},
                                                       {"Jakarta", "Istanbul"},   {"Auckland", "Jakarta"},
                                                       {"Reykjavik", "New York"}, {"Delhi", "Auckland"}};

void printRow(const std::string& name, int years, const Figures& sum) {
    fmt::print("| {} | {} | {} | {} | {} | {} | {} | {} | {} | {} | {} | {} |\n", name, years, sum.faults, sum.rings,
               sum.rung, sum.late, sum.excused, sum.early, sum.lost, sum.doubled, sum.wrong, sum.hangs);
    std::fflush(stdout);
    for (const std::string& finding : sum.findings) fmt::print(stderr, "{}: {}\n", name, finding);
}

Figures simulate(const std::vector<Fault>& faults, int years, bool killsWhileAsking) {
    Figures sum;
    for (int each = 0; each < years; ++each) {
        const auto& [city, other] = places[std::size_t(each) % std::size(places)];
        Plan plan{city, other, 365, unsigned(1000 + each), faults};
        plan.interval = std::chrono::hours(faults.size() > 1 ? 6 : 12);
        plan.killsWhileAsking = killsWhileAsking;
        sum.add(Simulation(plan).run());
    }
    return sum;
}

int run(int years) {
    fmt::print(
        "| fault | city-years | incidents | rings | in time | late | excused | early by a wrong clock | lost | doubled "
        "| "
        "wrong | hangs |\n|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n");
    Figures all;
    const auto add = [&](const std::string& name, const std::vector<Fault>& faults, int count) {
        const Figures sum = simulate(faults, count, false);
        printRow(name, count, sum);
        all.add(sum);
    };
    add("none", {}, std::max(1, years / 2));
    for (const Fault fault : allFaults()) add(nameOf(fault), {fault}, years);
    add("all of them", allFaults(), 2 * years);
    printRow("sum", std::max(1, years / 2) + years * int(allFaults().size()) + 2 * years, all);
    printRow("*killed within the call to the desktop*", 1, simulate({Fault::kill}, 1, true));
    return all.isGood() ? 0 : 1;
}

}  // namespace
}  // namespace quode::test

int main(int argc, char** argv) {
    const int years = argc > 1 ? quode::numberOf<int>(argv[1]).value_or(0) : 4;
    if (years < 1) {
        fmt::print(stderr, "simulated_years: \"{}\" is no number of years. Give one from 1.\n", argv[1]);
        return 2;
    }
    return quode::test::run(years);
}
