// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "conventions/UsedPoint.h"

#include <algorithm>
#include <limits>

#include "conventions/JakimZones.h"
#include "conventions/degrees.h"

namespace quode::conventions {
namespace {

constexpr double meanEarthRadius = 6371.0;  // km
constexpr double farFromMalaysia = 120.0;   // km from every seat
constexpr double atThePoint = 0.006;        // degrees
constexpr double clearlyNearer = 2.0;       // how many times nearer than the seat of any other zone

/// The seats nearest to a place: of the nearest zone and of any other.
struct Nearest {
    const JakimSeat* seat = nullptr;
    double distance = std::numeric_limits<double>::max();
    double distanceOfOther = std::numeric_limits<double>::max();
};

Nearest nearestSeat(double latitude, double longitude) {
    Nearest nearest;
    for (const JakimSeat& seat : jakimSeats()) {
        const double distance = distanceKm(latitude, longitude, seat.latitude, seat.longitude);
        if (distance >= nearest.distance) continue;
        nearest.seat = &seat;
        nearest.distance = distance;
    }
    for (const JakimSeat& seat : jakimSeats()) {
        if (seat.zone == nearest.seat->zone) continue;
        const double distance = distanceKm(latitude, longitude, seat.latitude, seat.longitude);
        nearest.distanceOfOther = std::min(nearest.distanceOfOther, distance);
    }
    return nearest;
}

const JakimZone* zoneNamed(std::string_view key) {
    const auto zones = jakimZones();
    const auto found = std::ranges::find(zones, key, &JakimZone::key);
    return found == zones.end() ? nullptr : &*found;
}

const JakimZone* zoneAt(double latitude, double longitude) {
    const JakimZone* nearest = nullptr;
    double smallest = atThePoint;
    for (const JakimZone& zone : jakimZones()) {
        const double off = std::max(std::abs(zone.latitude - latitude), std::abs(zone.longitude - longitude));
        if (off >= smallest) continue;
        nearest = &zone;
        smallest = off;
    }
    return nearest;
}

UsedPoint pointOf(const JakimZone& zone, bool isCertain) {
    return {zone.latitude,  zone.longitude,        zone.sunriseLongitude,
            zone.ishaAngle, std::string(zone.key), isCertain && !zone.isMountain};
}

UsedPoint zonePoint(double latitude, double longitude, std::string_view key, bool isAbroad) {
    if (const JakimZone* zone = zoneNamed(key)) return pointOf(*zone, true);
    if (const JakimZone* zone = zoneAt(latitude, longitude)) return pointOf(*zone, true);
    const Nearest nearest = nearestSeat(latitude, longitude);
    if (nearest.distance > farFromMalaysia) return {latitude, longitude, longitude, {}, "", false};
    const bool isCertain = !isAbroad && nearest.distance * clearlyNearer < nearest.distanceOfOther;
    return pointOf(*zoneNamed(nearest.seat->zone), isCertain);
}

}  // namespace

double distanceKm(double latitude1, double longitude1, double latitude2, double longitude2) {
    const double a = sinDeg((latitude2 - latitude1) / 2.0), b = sinDeg((longitude2 - longitude1) / 2.0);
    const double h = a * a + cosDeg(latitude1) * cosDeg(latitude2) * b * b;
    return 2.0 * meanEarthRadius * asinDeg(std::sqrt(h)) * radiansPerDegree;
}

UsedPoint usedPoint(const Convention& convention, double latitude, double longitude, std::string_view zone,
                    std::string_view country) {
    const bool isAbroad = !country.empty() && !isOfCountry(convention, country);
    if (convention.point == PointRule::jakimZones) return zonePoint(latitude, longitude, zone, isAbroad);
    for (const ReferencePoint& point : convention.points) {
        if (distanceKm(latitude, longitude, point.latitude, point.longitude) > point.reach) continue;
        return {point.latitude, point.longitude, point.longitude, {}, std::string(point.name), true};
    }
    return {latitude, longitude, longitude, {}, "", true};
}

}  // namespace quode::conventions
