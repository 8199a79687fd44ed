// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode settings: what is stored of the user's choices beside cities and alarms.
#include "app/settings.h"

#include "app/session.h"
#include "app/text_layout.h"
#include "cli/commands.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

void showAll(Session& session) {
    const UserSettings present = presentSettings(session);
    if (session.wantsJson()) {
        Json::Object members;
        for (const Setting& each : allSettings()) members.emplace_back(each.key, each.value(present));
        return session.printJson(object({{"settings", Json(std::move(members))}}));
    }
    using Align = TextTable::Align;
    TextTable table({Align::left, Align::left, Align::left});
    for (const Setting& each : allSettings()) table.add({each.key, each.value(present), _(each.meaning)});
    session.print(table, 0);
}

void showOne(Session& session, const Setting& setting) {
    const std::string value = setting.value(presentSettings(session));
    if (session.wantsJson()) {
        return session.printJson(object({{"settings", Json(Json::Object{{setting.key, value}})}}));
    }
    session.printData(value);
    session.print(session.style().dim(session.wrapped(_("Choices: {}.", setting.choices(session)))));
}

void runSettings(Session& session, const Arguments& arguments) {
    const std::optional<std::string> key = arguments.text("KEY"), value = arguments.text("VALUE");
    if (!key) return showAll(session);
    const Setting& setting = settingNamed(*key);
    if (!value) return showOne(session, setting);
    setting.change(session, std::string(trimmed(*value)));
    showAll(session);
}

}  // namespace

Command settingsCommand() {
    return {"settings",
            _("Show or change settings"),
            {{Parameter::Kind::word, "KEY", "", _("Its name; without one all settings are shown")},
             {Parameter::Kind::word, "VALUE", "", _("What it is to be")}},
            runSettings};
}

}  // namespace quode::cli
