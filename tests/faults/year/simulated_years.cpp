// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The long form of the simulated years: writes the figures as a table for docs/reliability.md.
//
//   simulated_years [YEARS [PROCESSES [FAULT [YEAR]]]]    city-years of each kind of fault, how many kinds are simulated
//                                                  at a time, a part of the name of the only ones to be simulated, and
//                                                  the number of the only year, such as a finding names
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <deque>
#include <thread>

#include "Simulation.h"
#include "common/numbers.h"

namespace quode::test {
namespace {

constexpr std::pair<const char*, const char*> places[]{{"Istanbul", "Berlin"},    {"New York", "London"},
                                                       {"Jakarta", "Istanbul"},   {"Auckland", "Jakarta"},
                                                       {"Reykjavik", "New York"}, {"Delhi", "Auckland"}};

struct Row {
    std::string name;
    std::vector<Fault> faults;
    int years = 1;
    int firstYear = 0;
    bool isPromised = true;  // else it is the exception
    pid_t process = 0;
    int result = -1;
};

Figures simulate(const Row& row) {
    Figures sum;
    for (int each = row.firstYear; each < row.firstYear + row.years; ++each) {
        const auto& [city, other] = places[std::size_t(each) % std::size(places)];
        Plan plan{city, other, 365, unsigned(1000 + each), row.faults};
        plan.interval = std::chrono::hours(row.faults.size() > 1 ? 6 : 12);
        plan.killsWhileAsking = !row.isPromised;
        const Figures year = Simulation(plan).run();
        for (const std::string& finding : year.findings)
            fmt::print(stderr, "{}, year {}: {}\n", row.name, each, finding);
        sum.add(year);
    }
    return sum;
}

constexpr long Figures::*members[]{&Figures::faults,  &Figures::rings,        &Figures::rung,  &Figures::late,
                                   &Figures::excused, &Figures::byWrongClock, &Figures::lost,  &Figures::repeated,
                                   &Figures::doubled, &Figures::wrong,        &Figures::hangs, &Figures::reminders,
                                   &Figures::muted};

// A simulation has a process to itself: the shared services, the disk and the environment are those of a process.
void start(Row& row) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    row.process = fork();
    if (row.process == 0) {
        const Figures sum = simulate(row);
        std::string text;
        for (const auto member : members) text += fmt::format("{} ", sum.*member);
        [[maybe_unused]] const auto written = ::write(ends[1], text.data(), text.size());
        std::fflush(stderr);
        _exit(0);
    }
    ::close(ends[1]);
    row.result = ends[0];
}

// A process that ended without its figures hangs or crashed.
Figures resultOf(const Row& row) {
    std::array<char, 1000> text{};
    const auto length = ::read(row.result, text.data(), text.size());
    ::close(row.result);
    waitpid(row.process, nullptr, 0);
    std::string_view rest(text.data(), length > 0 ? std::size_t(length) : 0);
    Figures sum;
    for (const auto member : members) {
        const std::optional<long> number = takeNumber<long>(rest);
        if (!number) ++sum.hangs;
        sum.*member += number.value_or(0);
        if (!rest.empty()) rest.remove_prefix(1);
    }
    return sum;
}

void print(const std::string& name, int years, const Figures& sum) {
    std::string line = fmt::format("| {} | {} |", name, years);
    for (const auto member : members) line += fmt::format(" {} |", sum.*member);
    fmt::print("{}\n", line);
    std::fflush(stdout);
}

std::vector<Row> rowsNamed(std::string_view part, int years) {
    std::vector<Row> rows{{"none", {}, std::max(1, years / 2)}};
    for (const Fault fault : allFaults()) rows.push_back({nameOf(fault), {fault}, years});
    rows.push_back({"all of them", allFaults(), 2 * years});
    rows.push_back({"*killed within the call to the desktop*", {Fault::kill}, 1, 0, false});
    std::erase_if(rows, [&](const Row& row) { return row.name.find(part) == std::string::npos; });
    return rows;
}

int run(std::vector<Row> rows, std::size_t processes) {
    fmt::print(
        "| fault | city-years | incidents | rings | in time | late | excused | by a wrong clock | lost | repeated | "
        "doubled "
        "| "
        "wrong | hangs | second rings | muted |\n|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n");
    std::fflush(stdout);
    Figures all;
    int allYears = 0;
    std::deque<Row*> running;
    const auto finish = [&] {
        const Row& row = *running.front();
        const Figures sum = resultOf(row);
        running.pop_front();
        if (row.isPromised) {
            all.add(sum);
            allYears += row.years;
        } else {
            print("**sum**", allYears, all);
        }
        print(row.name, row.years, sum);
    };
    for (Row& row : rows) {
        if (running.size() >= processes) finish();
        start(row);
        running.push_back(&row);
    }
    while (!running.empty()) finish();
    return all.isGood() ? 0 : 1;
}

}  // namespace
}  // namespace quode::test

int main(int argc, char** argv) {
    const auto argument = [&](int index, int other) {
        return argc > index ? quode::numberOf<int>(argv[index]).value_or(0) : other;
    };
    const int years = argument(1, 4), processes = argument(2, int(std::thread::hardware_concurrency()));
    if (years >= 1 && processes >= 1) {
        std::vector<quode::test::Row> rows = quode::test::rowsNamed(argc > 3 ? argv[3] : "", years);
        for (quode::test::Row& row : rows) {
            if (argc <= 4) break;
            row.firstYear = argument(4, 0);
            row.years = 1;
        }
        return quode::test::run(std::move(rows), std::size_t(processes));
    }
    fmt::print(stderr, "simulated_years: give a number of years, and of processes, from 1.\n");
    return 2;
}
