// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Threads that share a database and places.
#include <gtest/gtest.h>
#include <quode/quode.h>

#include <thread>

namespace {

using namespace std::chrono;

std::vector<std::int64_t> instantsOf(const quode::Place& place) {
    std::vector<std::int64_t> instants;
    for (const quode::Day& day : quode::daysFor(place, 2026y / 1 / 1, 60)) {
        for (const quode::PrayerTime& time : day.times) {
            instants.push_back(time.exists() ? time.instant->time_since_epoch().count() : 0);
        }
    }
    return instants;
}

TEST(LibraryThreads, ShareADatabaseAndPlacesAndGetTheSame) {
    const quode::Database database;
    const std::vector<std::string> names{"London", "Cairo", "Jakarta", "Oslo"};
    std::vector<std::vector<std::int64_t>> alone;
    std::vector<quode::Place> places;
    for (const std::string& name : names) {
        places.push_back(database.find(name));
        alone.push_back(instantsOf(places.back()));
    }
    std::vector<int> agreements(8);
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < agreements.size(); ++t) {
        threads.emplace_back([&, t] {
            for (std::size_t i = 0; i < names.size(); ++i) {
                const quode::Place place = t % 2 == 0 ? database.find(names[i]) : places[i];
                if (instantsOf(place) == alone[i]) ++agreements[t];
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const int count : agreements) EXPECT_EQ(count, 4);
}

}  // namespace
