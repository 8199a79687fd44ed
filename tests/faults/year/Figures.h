// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace quode::test {

/// What became of the rings of a simulation.
struct Figures {
    long rings = 0;  ///< that the timetable and the snoozes demand
    long rung = 0;   ///< within their minute
    long late = 0;   ///< within the quarter of an hour
    long excused =
        0;  ///< silent, for all of that time the device slept, was off, had a wrong clock or no notifications
    long byWrongClock = 0;  ///< brought by a clock that was more than an hour off; those that came early rang again
    long lost = 0;          ///< silent without an excuse
    long repeated = 0;      ///< shown again after the service and the desktop ended before the answer arrived
    long doubled = 0;       ///< shown once too often
    long wrong = 0;         ///< at a time, or with a text, that the timetable does not have
    long hangs = 0;         ///< the service did not come to rest
    long faults = 0;        ///< incidents
    long reminders = 0;     ///< of the rings, those before or after that of their prayer
    long muted = 0;         ///< that the user had muted or skipped; no rings
    std::vector<std::string> findings;  ///< the first failures, for people

    void add(const Figures& other);
    bool isGood() const { return lost == 0 && doubled == 0 && wrong == 0 && hangs == 0; }
    void find(const std::string& text) {
        if (findings.size() < 40) findings.push_back(text);
    }
};

inline void Figures::add(const Figures& other) {
    for (long Figures::*each :
         {&Figures::rings, &Figures::rung, &Figures::late, &Figures::excused, &Figures::byWrongClock, &Figures::lost,
          &Figures::repeated, &Figures::doubled, &Figures::wrong, &Figures::hangs, &Figures::faults,
          &Figures::reminders, &Figures::muted}) {
        this->*each += other.*each;
    }
    for (const std::string& text : other.findings) find(text);
}

}  // namespace quode::test
