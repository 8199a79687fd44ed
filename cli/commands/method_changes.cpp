// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode method set: chooses the method of a city.
#include "app/city_changes.h"
#include "app/day_view.h"
#include "app/method_choice.h"
#include "app/method_rules.h"
#include "app/time_notes.h"
#include "cli/commands.h"
#include "cli/method_arguments.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void runMethodSet(Console& console, const Arguments& arguments) {
    Session& session = console.session();
    const ChosenPlace place = choosePlaceForMethod(session, arguments.text("city"));
    const CityRecord& city = place.city;
    if (city.id == 0) {
        throw Failure(ExitCode::usage, _("A method is kept for a city. Give the place a name first: quode city add "
                                         "LAT,LON --name NAME"));
    }
    conventions::Method method;
    method.key = conventionNamed(arguments.text("KEY").value_or("")).key;
    method = methodWith(method, arguments);
    chooseMethod(session, city, method);
    CityRecord changed = city;
    changed.choice.method = method;
    const Site site = siteOf(changed);
    const CityDay day = computeCityDay(site, today(session, site));
    if (console.wantsJson()) {
        return console.printJson(object({{"place", placeJson(place)}, {"method", methodJson(day)}}));
    }
    const std::string line = methodLine(site);
    console.print(city.name + ": " + (line.empty() ? _("Quode's own method.") : line + "."));
    for (const std::string& remark : methodRemarks(day)) console.print(console.wrapped(remark));
    if (const std::string iqama = iqamaLine(session, day); !iqama.empty()) console.print(console.wrapped(iqama));
    const std::string remark = remarkText(conventionNamed(method.key));
    if (!remark.empty()) console.printRemark(remark);
}

}  // namespace

Command methodSetCommand() {
    std::vector<Parameter> parameters{
        {Parameter::Kind::word, "KEY", "", _("Its key: quode method list; \"quode\" is the default"), true},
        cityParameter()};
    for (Parameter& parameter : methodChangeParameters()) parameters.push_back(std::move(parameter));
    return {"set", _("Choose the method of a city"), std::move(parameters), runMethodSet};
}

}  // namespace quode::cli
