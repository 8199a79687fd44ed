// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode_settings_pictures FOLDER WIDTH HEIGHT light|dark [PAGE...]: writes a picture PAGE.png of each page, with what the user's
// files hold, in the language of the environment, by the display of QT_QPA_PLATFORM.
#include <QApplication>
#include <QTest>
#include <QToolButton>
#include <cstdio>

#include "app/session.h"
#include "app/settings.h"
#include "companion/UserEventStore.h"
#include "desktop/WindowStyle.h"
#include "texts/translation.h"
#include "window/SettingsWindow.h"

namespace {

using namespace quode;

constexpr int drawn = 250;  // ms, until a compositor has shown the window

void openFirstDetails(const QWidget& window) {
    for (QToolButton* const each : window.findChildren<QToolButton*>()) {
        if (each->arrowType() == Qt::DownArrow && each->isVisible()) return each->setChecked(true);
    }
}

bool draw(window::SettingsWindow& window, const QString& page, const QString& file) {
    window.openPage(page);
    QTest::qWait(drawn);
    openFirstDetails(window);
    QTest::qWait(drawn);
    QTest::qWait(drawn);  // what was filled in at the end of the first wait is laid out in the second
    return window.grab().save(file, "PNG");
}

bool drawAll(const QStringList& arguments) {
    const LanguageChoice language = speakChosenLanguage(processEnvironment(), {});
    QApplication::setLayoutDirection(isRightToLeft(language.code) ? Qt::RightToLeft : Qt::LeftToRight);
    wearTheme(arguments[4] == "dark");
    app::Session session(processEnvironment(), {language});
    session.setCalendar(std::make_shared<UserEventStore>(session.dataFolder(), CalendarLayout::ics));
    session.services();
    window::Context context(session);
    window::SettingsWindow window(context);
    window.resize(arguments[2].toInt(), arguments[3].toInt());
    window.show();
    QStringList pages = arguments.mid(5);
    if (pages.isEmpty()) pages = {"cities", "alarms", "times", "timetable", "look", "calendar", "about"};
    for (const QString& page : pages) {
        if (!draw(window, page, arguments[1] + "/" + page + ".png")) return false;
    }
    return true;
}

}  // namespace

int main(int count, char** values) {
    const QApplication application(count, values);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 5) {
        std::fputs("quode_settings_pictures FOLDER WIDTH HEIGHT light|dark [PAGE...]\n", stderr);
        return 2;
    }
    return drawAll(arguments) ? 0 : 1;
}
