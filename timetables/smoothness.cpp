// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "timetables/smoothness.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <span>

namespace quode::timetables {
namespace {

constexpr double most = 6.0;              // minutes; tables that go in steps of five minutes stay within
constexpr double least = 1.95;            // rounding to the minute gives up to 1, a slip of the pen a minute more
constexpr double agreement = 4.0;         // between the neighbours
constexpr int farthestNeighbour = 3;      // days
constexpr std::size_t fewestPoints = 10;  // that tell how smooth a table is

// Neighbouring days that are wrong together.
constexpr int longestBlock = 14, longestEnd = 7;       // days; the Ramadan of a table is longer
constexpr int farthestBeside = 8;                      // days between a block and its neighbours
constexpr double leastStep = 3.0, leastEndStep = 8.0;  // minutes
constexpr double dailyDrift = 0.4;                     // minutes, of a table by other angles
constexpr std::size_t fewestBeside = 4;                // points that an end is compared with

struct Point {
    int day;
    int minute;
    double residue;  ///< minutes from where the Sun alone would put it
    double bend;     ///< what a rule for light nights may move it by
    bool isRamadan = false;
};

std::vector<Point> pointsOf(const Timetable& table, SunCheck& check, std::size_t prayer) {
    std::vector<Point> points;
    for (const auto& [day, row] : table.rows) {
        const auto minute = row.minutes[prayer];
        const SunCheck::Day& sun = check.day(day);
        if (!minute) continue;
        const double bend =
            std::max({check.day(day - 1)[prayer].bend, sun[prayer].bend, check.day(day + 1)[prayer].bend});
        const bool mayFollowRamadan = prayer == 0 || prayer == 5;
        points.push_back({day, *minute, *minute - sun[prayer].middle, bend, sun.isRamadan && mayFollowRamadan});
    }
    return points;
}

/// What two neighbours say of a point; nothing when they are far or do not agree.
std::optional<double> expectation(const Point& point, const Point& a, const Point& b) {
    const bool areNear =
        std::abs(a.day - point.day) <= farthestNeighbour && std::abs(b.day - point.day) <= farthestNeighbour;
    if (!areNear || std::abs(a.residue - b.residue) > agreement) return std::nullopt;
    return (a.residue + b.residue) / 2.0;
}

/// How far a point is from what its neighbours say, in minutes; nothing when they say nothing.
std::optional<double> distanceOf(const std::vector<Point>& points, std::size_t i) {
    // The first and the last have both neighbours on one side.
    const std::size_t a = i == 0 ? 1 : i - 1;
    const std::size_t b = i == 0 ? 2 : i + 1 == points.size() ? i - 2 : i + 1;
    const auto expected = expectation(points[i], points[a], points[b]);
    if (!expected) return std::nullopt;
    return std::abs(points[i].residue - *expected);
}

/// The minutes to which a table rounds its times: 1, 5, 10 or 15.
int grainOf(std::span<const Point> points) {
    for (const int grain : {15, 10, 5}) {
        const auto onGrain = std::ranges::count_if(points, [&](const Point& p) { return p.minute % grain == 0; });
        if (std::size_t(onGrain) * 10 >= points.size() * 9) return grain;
    }
    return 1;
}

/// How far a point may be: twice as far as nine of ten are.
double toleranceOf(const std::vector<Point>& points) {
    std::vector<double> distances;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (const auto distance = distanceOf(points, i)) distances.push_back(*distance);
    }
    if (distances.size() < fewestPoints) return most;
    const auto ninth = distances.begin() + std::ptrdiff_t(distances.size() * 9 / 10);
    std::ranges::nth_element(distances, ninth);
    if (grainOf(points) > 1) return most;
    return std::clamp(2.0 * *ninth, least, most);
}

/// Takes the point that is farthest from what its neighbours say out of the others, where it is too far: beside it they
/// seem to be wrong, too.
std::optional<Outlier> takeFarthest(std::vector<Point>& points, double tolerance, std::size_t prayer) {
    std::size_t farthest = points.size();
    double largest = tolerance;
    for (std::size_t i = 0; i < points.size() && points.size() >= 3; ++i) {
        const auto distance = distanceOf(points, i);
        if (!distance || *distance <= std::max(largest, points[i].bend)) continue;
        largest = *distance;
        farthest = i;
    }
    if (farthest == points.size()) return std::nullopt;
    const Outlier outlier{points[farthest].day, int(prayer), points[farthest].minute, int(std::lround(largest))};
    points.erase(points.begin() + std::ptrdiff_t(farthest));
    return outlier;
}

// --- neighbouring days that are wrong together

/// What a step must exceed to be none of the table's own: its rounding, or what most of its days differ by.
double stepOf(std::span<const Point> points) {
    std::vector<double> differences;
    for (std::size_t i = 1; i < points.size(); ++i) {
        differences.push_back(std::abs(points[i].residue - points[i - 1].residue));
    }
    const double ofGrain = 1.2 * grainOf(points);
    if (differences.size() < fewestPoints) return std::max(most, ofGrain);
    const auto upper = differences.begin() + std::ptrdiff_t(differences.size() * 3 / 4);
    std::ranges::nth_element(differences, upper);
    return std::max({leastStep, ofGrain, 2.0 * *upper});
}

bool areSteady(std::span<const Point> points) {
    return std::ranges::all_of(points, [](const Point& point) { return point.bend < most; });
}

/// Whether all points but the first and the last stand apart, on one side, from the line between these two.
bool standsApart(std::span<const Point> points, double step) {
    const Point &before = points.front(), &after = points.back();
    const auto block = points.subspan(1, points.size() - 2);
    const bool isBeside =
        block.front().day - before.day <= farthestBeside && after.day - block.back().day <= farthestBeside;
    const double days = after.day - before.day, rise = after.residue - before.residue;
    if (!isBeside || !areSteady(points) || std::abs(rise) > agreement + dailyDrift * days) return false;
    const auto distance = [&](const Point& point) {
        return point.residue - before.residue - rise * (point.day - before.day) / days;
    };
    const double side = std::copysign(1.0, distance(block.front()));
    return std::ranges::all_of(block, [&](const Point& point) { return distance(point) * side > step; });
}

/// Whether the points of an end, in the order towards the rest, step away from the rest, which goes on smoothly.
/// A table may change its rule for Ramadan.
bool stepsAway(std::span<const Point> end, std::span<const Point> rest, double step) {
    const double endStep = std::max(leastEndStep, 2.0 * step);
    const std::size_t beside = std::max(fewestBeside, 2 * end.size());
    if (rest.size() < beside) return false;
    rest = rest.first(beside);
    // The month may begin a day earlier or later than computed.
    const auto inside = end.last(2);
    const bool isOfRamadan = inside[0].isRamadan != rest[1].isRamadan;
    if (isOfRamadan || !areSteady(end) || !areSteady(rest)) return false;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (std::abs(rest[i].residue - rest[i - 1].residue) > step) return false;
    }
    const double side = std::copysign(1.0, end.front().residue - rest.front().residue);
    return std::ranges::all_of(
        end, [&](const Point& point) { return (point.residue - rest.front().residue) * side > endStep; });
}

struct Block {
    std::size_t first = 0, size = 0;
    double level = 0.0;  ///< the residue of the points beside it
};

std::optional<Block> findBlock(const std::vector<Point>& points, double step) {
    for (std::size_t size = 2; size <= std::size_t(longestBlock); ++size) {
        for (std::size_t first = 1; first + size < points.size(); ++first) {
            if (points[first + size - 1].day - points[first].day >= longestBlock) continue;
            const std::span<const Point> around(points.data() + first - 1, size + 2);
            if (standsApart(around, step)) return Block{first, size, points[first - 1].residue};
        }
    }
    return std::nullopt;
}

/// A block at the begin; for the one at the end the points are given in reverse.
std::optional<Block> findEnd(std::span<const Point> points, double step) {
    for (std::size_t size = 2; size <= std::size_t(longestEnd) && size < points.size(); ++size) {
        if (std::abs(points[size - 1].day - points[0].day) >= longestEnd) break;
        if (std::abs(points[size].day - points[size - 1].day) > farthestNeighbour) break;
        if (stepsAway(points.first(size), points.subspan(size), step)) return Block{0, size, points[size].residue};
    }
    return std::nullopt;
}

std::optional<Block> findWrong(const std::vector<Point>& points, double step) {
    if (const auto block = findBlock(points, step)) return block;
    if (const auto begin = findEnd(points, step)) return begin;
    const std::vector<Point> reversed(points.rbegin(), points.rend());
    auto end = findEnd(reversed, step);
    if (end) end->first = points.size() - end->size;
    return end;
}

/// Takes the blocks of days that stand apart out of the others.
std::vector<Outlier> takeBlocks(std::vector<Point>& points, std::size_t prayer) {
    std::vector<Outlier> outliers;
    const double step = stepOf(points);
    while (const auto block = findWrong(points, step)) {
        const auto first = points.begin() + std::ptrdiff_t(block->first);
        const auto end = first + std::ptrdiff_t(block->size);
        for (const Point& point : std::span<const Point>(first, end)) {
            const int distance = int(std::lround(std::abs(point.residue - block->level)));
            outliers.push_back({point.day, int(prayer), point.minute, distance});
        }
        points.erase(first, end);
    }
    return outliers;
}

}  // namespace

std::vector<Outlier> outliersOf(const Timetable& table, SunCheck& check) {
    std::vector<Outlier> outliers;
    for (std::size_t prayer = 0; prayer < mainPrayerCount; ++prayer) {
        std::vector<Point> points = pointsOf(table, check, prayer);
        if (points.size() < 3) continue;
        std::ranges::move(takeBlocks(points, prayer), std::back_inserter(outliers));
        const double tolerance = toleranceOf(points);
        while (const auto outlier = takeFarthest(points, tolerance, prayer)) outliers.push_back(*outlier);
    }
    return outliers;
}

}  // namespace quode::timetables
