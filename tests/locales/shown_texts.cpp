// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// shown_texts: prints the labels of the widget, what is drawn of them, the texts of the icon in the tray, the notes of the day, and the text
// of an alarm, as JSON; with the user's files, the moment and the locale of the environment.
#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>

#include "alarmd/ring_texts.h"
#include "app/day_notes.h"
#include "app/day_view.h"
#include "app/session.h"
#include "companion/UserDatabase.h"
#include "data/city_day.h"
#include "host/WidgetBundle.h"
#include "host/coming_prayer.h"
#include "host/user_choices.h"
#include "texts/reading_order.h"
#include "views/Label.h"
#include "views/UIButtonX.h"

using namespace quode;

namespace {

// The texts of the labels with the rows about the city open, and the same as they are drawn.
app::Json labels(app::Session& session, const std::function<std::string(const std::string&)>& shown) {
    const auto widget = host::WidgetBundle(session.bundle().string()).makeWidget();
    widget->hostDidPresent();
    for (UIButtonX* const button : widget->view()->findChildren<UIButtonX*>()) {
        if (button->tag() == tagCityInfo) button->tap();
    }
    app::Json::Array texts;
    for (const Label* const label : widget->view()->findChildren<Label*>()) texts.emplace_back(shown(label->text()));
    widget->hostDidDismiss();
    return texts;
}

// A ring ten minutes before the afternoon prayer of a city.
app::Json ring(app::Session& session, const CityRecord& city) {
    const CityDay day = computeCityDay(siteOf(city), VAKDateMake(21, 11, 2026, 0, 0, 0));
    const auto prayer = instantOf(day, day.times.AsriEvvel);
    const Notification shown = notificationOf(
        {{203, prayer - std::chrono::minutes(10), prayer, day.times.AsriEvvel, day.date}, city.name, "chime"},
        session.services());
    return app::Json::Array{shown.title, shown.body, shown.actions.at(1).label};
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir runtimeFolder;
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toUtf8());
    const QApplication application(argc, argv);  // takes over the locale of the environment
    app::Session session(processEnvironment(), {});
    const auto calendar = std::make_shared<UserEventStore>(session.dataFolder(), CalendarLayout::ics);
    session.setCalendar(calendar);
    session.services();
    host::prepareUserChoices(session, *calendar);
    app::Json::Array notes;
    const app::ChosenPlace place = app::chooseHomePlace(session);
    const CityDay day = computeCityDay(siteOf(place.city), app::today(session, siteOf(place.city)));
    for (const std::string& note : app::dayNotes(session, place, day)) notes.emplace_back(inReadingOrder(note));
    const host::ComingPrayer coming = host::comingPrayer(session);
    const auto home = UserDatabase(session.dataFolder(), session.cities(), session.deviceClock()).home();
    std::fputs(app::object({{"labels", labels(session, [](const std::string& text) { return text; })},
                            {"drawn", labels(session, [](const std::string& text) { return withPartsTogether(text); })},
                            {"tray", app::Json::Array{coming.exact, coming.lasting}},
                            {"notes", notes},
                            {"ring", ring(session, *home->city)}})
                   .text()
                   .c_str(),
               stdout);
    return 0;
}
