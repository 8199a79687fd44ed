// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Dates and moments of a command line.
#include "app/dates.h"
#include "app/failure.h"
#include "fuzz/target.h"

namespace {

template <typename Parse>
void attempt(Parse parse) {
    try {
        parse();
    } catch (const quode::app::Failure& failure) {
        quode::fuzz::require(*failure.what() != '\0');
    }
}

}  // namespace

namespace quode::fuzz {
namespace {

void consumeDates(std::string_view bytes) {
    using namespace app;
    attempt([&] { require(sameDay(parseDate(isoDate(parseDate(bytes))), parseDate(bytes))); });
    attempt([&] { daysOf(parseMonth(bytes)); });
    attempt([&] { parseYear(bytes); });
    attempt([&] { parseHijriDate(bytes); });
    attempt([&] { require(parseMoment(isoMoment(parseMoment(bytes))) == parseMoment(bytes)); });
}

const Target ofDates("dates", consumeDates);

}  // namespace
}  // namespace quode::fuzz
