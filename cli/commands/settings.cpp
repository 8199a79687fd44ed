// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode settings: what is stored of the user's choices beside cities and alarms.
#include "app/settings.h"

#include "cli/commands.h"
#include "common/numbers.h"
#include "common/printable.h"
#include "terminal/Console.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void showAll(Console& console) {
    const UserSettings present = presentSettings(console.session());
    if (console.wantsJson()) {
        Json::Object members;
        for (const Setting& each : allSettings()) members.emplace_back(each.key, each.value(present));
        return console.printJson(object({{"settings", Json(std::move(members))}}));
    }
    using Align = TextTable::Align;
    TextTable table({Align::left, Align::left, Align::left});
    for (const Setting& each : allSettings()) table.add({each.key, printable(each.value(present)), _(each.meaning)});
    console.print(table, 0);
}

void showOne(Console& console, const Setting& setting) {
    Session& session = console.session();
    const std::string value = setting.value(presentSettings(session));
    if (console.wantsJson()) {
        return console.printJson(object({{"settings", Json(Json::Object{{setting.key, value}})}}));
    }
    console.printData(printable(value));
    console.printRemark(_("Choices: {}.", setting.choices(session)));
}

void runSettings(Console& console, const Arguments& arguments) {
    const std::optional<std::string> key = arguments.text("KEY"), value = arguments.text("VALUE");
    if (!key) return showAll(console);
    const Setting& setting = settingNamed(*key);
    if (!value) return showOne(console, setting);
    setting.change(console.session(), std::string(trimmed(*value)));
    showAll(console);
}

}  // namespace

Command settingsCommand() {
    return {"settings",
            _("Show or change settings"),
            {{Parameter::Kind::word, "KEY", "", _("Its name; without one all settings are shown")},
             {Parameter::Kind::word, "VALUE", "", _("The new value")}},
            runSettings};
}

}  // namespace quode::cli
