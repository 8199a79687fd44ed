// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode calendar publish, unpublish: a calendar file that stays current.
#include "app/published_calendar.h"
#include "app/session.h"
#include "app/text_layout.h"
#include "app/user_data.h"
#include "cli/commands.h"
#include "cli/minutes.h"
#include "texts/translation.h"

namespace quode::cli {
namespace {

Json publishedJson(const std::optional<PublishedCalendar>& calendar) {
    Json alarm;
    if (calendar && calendar->alarm) alarm = static_cast<int>(calendar->alarm->count());
    return object({{"file", calendar ? Json(calendar->file.string()) : Json()}, {"alarm_minutes", alarm}});
}

void tell(Session& session, const std::optional<PublishedCalendar>& calendar) {
    if (session.wantsJson()) return session.printJson(publishedJson(calendar));
    if (!calendar) return session.print(_("No calendar is published. To begin: quode calendar publish FILE"));
    session.print(
        session.wrapped(_("{0} holds the prayers of the home city. The alarm service keeps it current. In your "
                          "calendar program, subscribe to file://{0}.",
                          calendar->file.string())));
}

void runPublish(Session& session, const Arguments& arguments) {
    const std::optional<std::string> file = arguments.text("FILE");
    if (!file) {
        const std::optional<UserDatabase> database = userDatabaseToRead(session);
        return tell(session, database ? publishedCalendar(*database) : std::nullopt);
    }
    const PublishedCalendar calendar{std::filesystem::absolute(*file).lexically_normal(), alarmMinutes(arguments)};
    publishCalendar(session, calendar);
    tell(session, calendar);
}

void runUnpublish(Session& session, const Arguments&) {
    const std::optional<PublishedCalendar> former = unpublishCalendar(session);
    if (session.wantsJson()) return session.printJson(publishedJson(std::nullopt));
    session.print(former ? _("{} is no longer kept current; the file stays where it is.", former->file.string())
                         : std::string(_("No calendar was published.")));
}

}  // namespace

Command calendarPublishCommand() {
    return {"publish",
            _("Keep a calendar file of the prayers current, to subscribe to"),
            {{Parameter::Kind::word, "FILE", "", _("The file, such as ~/prayers.ics")},
             {Parameter::Kind::option, "alarm", "MINUTES", _("A reminder so long before each prayer")}},
            runPublish};
}

Command calendarUnpublishCommand() {
    return {"unpublish", _("Undo publish; the file stays"), {}, runUnpublish};
}

}  // namespace quode::cli
