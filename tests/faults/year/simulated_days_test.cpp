// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The short form of the simulated years: some days with each kind of fault, and with all of them at once.
#include <gtest/gtest.h>

#include "Simulation.h"

namespace quode::test {
namespace {

void expectGood(const Figures& figures, int days) {
    for (const std::string& finding : figures.findings) ADD_FAILURE() << finding;
    EXPECT_EQ(figures.lost, 0);
    EXPECT_EQ(figures.doubled, 0);
    EXPECT_EQ(figures.wrong, 0);
    EXPECT_EQ(figures.hangs, 0);
    EXPECT_GT(figures.rings + figures.muted, 4 * days) << "the simulation demands too little";
    EXPECT_GT(figures.rung + figures.late, figures.rings / 3) << "the simulation excuses too much";
}

class SimulatedDays : public testing::TestWithParam<Fault> {};

TEST_P(SimulatedDays, LoseAndDoubleNothing) {
    constexpr int days = 8;
    expectGood(Simulation({"Berlin", "Istanbul", days, 7, {GetParam()}, std::chrono::hours(5)}).run(), days);
}

INSTANTIATE_TEST_SUITE_P(Faults, SimulatedDays, testing::ValuesIn(allFaults()));

TEST(SimulatedDaysOfAllFaults, LoseAndDoubleNothing) {
    constexpr int days = 25;
    expectGood(Simulation({"Istanbul", "Jakarta", days, 3, allFaults(), std::chrono::hours(4)}).run(), days);
}

TEST(SimulatedDaysWithoutFaults, RingEachAlarmInItsMinute) {
    constexpr int days = 10;
    const Figures figures = Simulation({"London", "Istanbul", days, 5, {}}).run();
    expectGood(figures, days);
    EXPECT_EQ(figures.rung, figures.rings);
}

}  // namespace
}  // namespace quode::test
