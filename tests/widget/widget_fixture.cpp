// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "widget/widget_fixture.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QTimerEvent>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "data/CityDatabase.h"
#include "data/sqlite_reading.h"
#include "platform/system_platform.h"

namespace quode::test {
namespace {

sqlite::Database opened(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    const int result = sqlite3_open(file.c_str(), &database);
    sqlite::Database owned(database);
    if (result != SQLITE_OK) throw std::runtime_error("cannot open " + file.string());
    return owned;
}

}  // namespace

WidgetTest::WidgetTest() {
    device.dataFolder = folder.path().string();
    device.clock->offset = std::chrono::hours(3);
    device.clock->show(2026, 11, 21, 11, 30, 20);
    GlobalFuncs::startUp(platform());
}

Platform WidgetTest::platform() const {
    Platform real = device.platform();
    real.files = posixFiles();
    real.eventStore = calendar;
    return real;
}

void WidgetTest::keepCities(const std::vector<KeptCity>& cities) {
    runOnUserDatabase(
        "CREATE TABLE USER_CITY (POSITION INTEGER PRIMARY KEY, ID INTEGER, SETASHOME INTEGER);"
        "CREATE TABLE USER_ALARMS (TIMEID INTEGER, MINUTE INTEGER DEFAULT 0, PRAYTIME REAL DEFAULT 0,"
        " MELODYTIME INTEGER DEFAULT 0, MELODYNAME TEXT DEFAULT '', ACTIVE INTEGER DEFAULT 0, EVENTID TEXT DEFAULT '');"
        "INSERT INTO USER_ALARMS (TIMEID) VALUES (1), (2), (3), (4), (5), (6);");
    for (const KeptCity& city : cities) {
        runOnUserDatabase("INSERT INTO USER_CITY (ID, SETASHOME) VALUES (" + std::to_string(city.id) + ", " +
                          std::to_string(city.setAsHome) + ")");
    }
}

void WidgetTest::runOnUserDatabase(const std::string& sql) {
    const sqlite::Database database = opened(userDatabase());
    sqlite3_exec(database.get(), "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    char* message = nullptr;
    sqlite3_exec(database.get(), sql.c_str(), nullptr, nullptr, &message);
    const std::string failure = message == nullptr ? "" : message;
    sqlite3_free(message);
    if (!failure.empty()) throw std::runtime_error(failure + " in " + sql);
}

std::string WidgetTest::readFromUserDatabase(const std::string& query) {
    const sqlite::Database database = opened(userDatabase());
    const sqlite::Statement row = sqlite::prepare(database.get(), query);
    if (!row) throw std::runtime_error("no query: " + query);
    return sqlite3_step(row.get()) == SQLITE_ROW ? sqlite::text(row.get(), 0) : "";
}

int WidgetTest::cityNamed(std::string_view name) {
    static const CityDatabase cities{CityDatabase::fileIn(QUODE_BUNDLE)};
    return cities.search(name).at(0).city.id;
}

QuodeController& WidgetTest::makeWidget() {
    widget.reset();
    GlobalFuncs::startUp(platform());
    QuodeController::initialize(QUODE_BUNDLE);
    widget = std::make_unique<QuodeController>(compassDevices);
    widget->setWidgetHost(&host);
    return *widget;
}

QuodeController& WidgetTest::makeWidgetFor(std::string_view cityName) {
    keepCities({{cityNamed(cityName), 1}});
    return makeWidget();
}

QuodeController& WidgetTest::presentWidgetFor(std::string_view cityName) {
    makeWidgetFor(cityName).hostDidPresent();
    return *widget;
}

void WidgetTest::tick() {
    QTimerEvent event(widget->timer()->timerId());
    QCoreApplication::sendEvent(const_cast<QTimer*>(widget->timer()), &event);
}

std::string WidgetTest::log() const {
    std::ifstream file(folder.path() / "QuodeLog.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

UIButtonX& WidgetTest::button(const std::string& spokenName) {
    auto* found = qobject_cast<UIButtonX*>(spokenAs(*widget->view(), spokenName).object());
    if (found == nullptr) throw std::runtime_error("\"" + spokenName + "\" is no button");
    return *found;
}

std::vector<std::string> WidgetTest::shownTexts() {
    std::vector<std::string> texts;
    const QWidget& root = *widget->view();
    for (const auto* label : root.findChildren<Label*>()) {
        if (label->isVisibleTo(&root) && !label->text().empty()) texts.push_back(label->text());
    }
    return texts;
}

}  // namespace quode::test
