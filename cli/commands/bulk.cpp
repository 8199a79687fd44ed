// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode bulk: the times of many places, for spreadsheets and other programs.
#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <map>
#include <numeric>
#include <optional>
#include <thread>
#include <utility>

#include "app/dates.h"
#include "app/day_view.h"
#include "cli/ProgressBar.h"
#include "cli/commands.h"
#include "cli/day_csv.h"
#include "cli/method_arguments.h"
#include "common/numbers.h"
#include "data/city_days.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

constexpr std::size_t placesPerStep = 64;
constexpr std::size_t mostLines = 4000000;  // some 500 MB

/// Whether a place is among those that --cities names.
class Selection {
  public:
    explicit Selection(const std::string& request) {
        if (request == "all") return;
        isAll_ = false;
        for (std::size_t at = 0; at <= request.size();) {
            const std::size_t end = std::min(request.find(',', at), request.size());
            add(request.substr(at, end - at));
            at = end + 1;
        }
    }

    /// Whether a place is wanted. What names it counts as known from then on.
    bool take(const CityRecord& city) {
        if (isAll_) return true;
        const bool isOfCountry = note(countries_, city.countryCode), isById = note(ids_, city.id);
        return isOfCountry || isById;
    }

    /// What was named and met no place, separated by commas.
    std::string unknown() const {
        std::string names;
        const auto add = [&](const auto& wanted) {
            for (const auto& [name, isKnown] : wanted) {
                if (!isKnown) names += fmt::format("{}{}", names.empty() ? "" : ", ", name);
            }
        };
        add(countries_);
        add(ids_);
        return names;
    }

  private:
    template <typename Name>
    static bool note(std::map<Name, bool>& wanted, const Name& name) {
        const auto found = wanted.find(name);
        if (found == wanted.end()) return false;
        found->second = true;
        return true;
    }

    void add(std::string part) {
        const bool isCode = part.size() == 2 && std::ranges::all_of(part, [](char c) {
                                return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
                            });
        if (isCode) {
            for (char& letter : part) letter = letter >= 'a' ? static_cast<char>(letter - 'a' + 'A') : letter;
            countries_.emplace(part, false);
        } else if (const auto id = numberOf<int>(part)) {
            ids_.emplace(*id, false);
        } else {
            throw Failure(ExitCode::usage, _("\"{}\" is neither \"all\" nor a country code nor the id of a place. An "
                                             "example: --cities TR,745044",
                                             part));
        }
    }

    bool isAll_ = true;
    std::map<int, bool> ids_;  ///< and whether a place has it
    std::map<std::string, bool> countries_;
};

struct Work {
    std::vector<CityRecord> cities;
    std::vector<VAKDate> days;
};

std::vector<VAKDate> daysWanted(const VAKDate& from, const VAKDate& to) {
    const std::vector<VAKDate> days = daysBetween(from, to);
    if (days.empty()) throw Failure(ExitCode::usage, _("The last day, --to, lies before the first one."));
    return days;
}

/// What is asked for; it is understood before the places are read, which takes most of a second.
struct Request {
    Selection places;
    std::optional<std::size_t> largest;
    std::optional<VAKDate> from, to;
};

Request requestOf(const Arguments& arguments) {
    Request request{Selection(arguments.text("cities").value_or("all")), {}, {}, {}};
    if (const auto text = arguments.text("largest")) {
        const auto count = numberOf<int>(*text);
        if (!count || *count < 1)
            throw Failure(ExitCode::usage, _("--largest takes a number of places, such as 1000."));
        request.largest = static_cast<std::size_t>(*count);
    }
    if (const auto from = arguments.text("date")) request.from = parseDate(*from);
    if (const auto to = arguments.text("to")) request.to = parseDate(*to);
    if (request.from && request.to) daysWanted(*request.from, *request.to);
    return request;
}

/// The most populous places, the largest first; those of the same size stay in their order.
std::vector<CityRecord> largestOf(std::vector<CityRecord> cities, std::size_t count) {
    std::vector<std::size_t> order(cities.size());  // records are large to move
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto end = order.begin() + static_cast<std::ptrdiff_t>(std::min(count, order.size()));
    std::ranges::partial_sort(order, end, [&](std::size_t a, std::size_t b) {
        return std::pair(cities[b].population, a) < std::pair(cities[a].population, b);
    });
    std::vector<CityRecord> largest;
    for (auto place = order.begin(); place != end; ++place) largest.push_back(std::move(cities[*place]));
    return largest;
}

std::vector<CityRecord> citiesOf(Session& session, Request& request) {
    std::vector<CityRecord> cities;
    session.cities().forEach([&](const CityRecord& city) {
        if (request.places.take(city)) cities.push_back(city);
    });
    if (const std::string unknown = request.places.unknown(); !unknown.empty()) {
        throw Failure(ExitCode::notFound,
                      _("No place has the country code or id {}. \"quode city search NAME\" shows the id "
                        "of a place.",
                        unknown));
    }
    if (cities.empty())
        throw Failure(ExitCode::notFound, _("No place is selected. Try --cities all, or a country code."));
    if (request.largest) return largestOf(std::move(cities), *request.largest);
    return cities;
}

/// The lines of some places, one per day.
std::string linesOf(const Work& work, std::size_t first, std::size_t end, CityDays& series) {
    std::string lines;
    CityDay day;
    for (std::size_t i = first; i < end; ++i) {
        const CityRecord& city = work.cities[i];
        const Site site = siteOf(city);
        const std::string place =
            fmt::format("{},{},{},{},", city.id, csvText(city.name), csvText(city.region), city.countryCode);
        for (const VAKDate& date : work.days) {
            series.computeTimes(site, date, day);
            lines.append(place).append(isoDate(date)).append(",").append(csvTimes(day)).append("\n");
        }
    }
    return lines;
}

/// Computes the steps of a work on all processors; the first failure of a thread is thrown again.
class Steps {
  public:
    explicit Steps(const Work& work) : work_(work), lines_((work.cities.size() + placesPerStep - 1) / placesPerStep) {}

    std::vector<std::string> run() {
        ProgressBar bar(lines_.size());
        std::vector<std::jthread> threads;
        const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
        for (unsigned i = 1; i < processors; ++i) threads.emplace_back([this] { compute([](std::size_t) {}); });
        compute([&bar](std::size_t done) { bar.show(done); });
        threads.clear();
        if (failure_) std::rethrow_exception(failure_);
        return std::move(lines_);
    }

  private:
    template <typename Progress>
    void compute(Progress&& progress) try {
        CityDays series;
        for (std::size_t step = next_++; step < lines_.size(); step = next_++) {
            const std::size_t first = step * placesPerStep;
            lines_[step] = linesOf(work_, first, std::min(first + placesPerStep, work_.cities.size()), series);
            progress(++done_);
        }
    } catch (...) {
        next_ = lines_.size();
        if (!hasFailed_.exchange(true)) failure_ = std::current_exception();
    }

    const Work& work_;
    std::vector<std::string> lines_;
    std::atomic<std::size_t> next_ = 0, done_ = 0;
    std::atomic<bool> hasFailed_ = false;
    std::exception_ptr failure_;
};

void runBulk(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    if (console.wantsJson()) throw Failure(ExitCode::usage, _("\"quode bulk\" writes CSV only. Leave --json out."));
    Work work;
    const conventions::Method method = methodOfCall({}, arguments);
    Request request = requestOf(arguments);
    work.cities = citiesOf(session, request);
    for (CityRecord& city : work.cities) city.choice.method = method;
    const VAKDate from = request.from ? *request.from : today(session, siteOf(work.cities.front()));
    work.days = daysWanted(from, request.to.value_or(from));
    if (work.cities.size() * work.days.size() > mostLines) {
        throw Failure(ExitCode::usage,
                      _("{} places on {} days are more than {} lines. Take fewer places or days, in several runs.",
                        work.cities.size(), work.days.size(), mostLines));
    }
    console.printData("id,name,region,country,date," + csvTimesHead());
    for (const std::string& lines : Steps(work).run())
        console.printData(std::string_view(lines).substr(0, lines.size() - 1));
}

}  // namespace

Command bulkCommand() {
    std::vector<Parameter> all{
        {Parameter::Kind::option, "cities", "all|CODE|ID,...",
         _("All places (the default), those of countries, or ids")},
        {Parameter::Kind::option, "largest", "N", _("Only the N most populous of them")},
        {Parameter::Kind::option, "date", "YYYY-MM-DD", _("The day, or the first day; else today")},
        {Parameter::Kind::option, "to", "YYYY-MM-DD", _("The last day")},
        {Parameter::Kind::option, "format", "csv", _("The form of the output"), false, {"csv"}},
        {Parameter::Kind::option, "method", "KEY", _("Another method than Quode's own: quode method list")},
        {Parameter::Kind::option, "height", "METRES", _("The height of the places, for methods that need it")}};
    return {"bulk", _("The times of many places, as CSV"), std::move(all), runBulk};
}

}  // namespace quode::cli
