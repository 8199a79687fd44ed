// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>

#include "app/city_changes.h"
#include "fixture.h"

namespace quode::test {
namespace {

class CitiesPage : public WindowTest {
  protected:
    CitiesPage() { open("cities"); }

    /// Names and home of the stored cities, such as "Kathmandu* Ankara".
    std::string stored() {
        std::string list;
        for (const UserCity& each : database().cities()) {
            list += (list.empty() ? "" : " ") + (each.city ? each.city->name : "?") + (each.isHome ? "*" : "");
        }
        return list;
    }

    void search(const QString& text) {
        auto* const field = control<QLineEdit>("Name of the city");
        field->clear();
        QTest::keyClicks(field, text);
    }

    void addFirstOf(const QString& text) {
        search(text);
        QTest::keyClick(control<QLineEdit>("Name of the city"), Qt::Key_Return);
        settle();
    }
};

TEST_F(CitiesPage, MarksTheGuess) {
    EXPECT_EQ(stored(), "Kathmandu*");
    EXPECT_TRUE(shows("Guessed from the time zone"));
    EXPECT_TRUE(button("Kathmandu: home city")->isChecked());
    press("Kathmandu: home city");
    EXPECT_FALSE(shows("Guessed from the time zone"));
}

TEST_F(CitiesPage, AddsWhatIsTyped) {
    addFirstOf("ankara");
    EXPECT_EQ(stored(), "Kathmandu* Ankara");
    EXPECT_TRUE(shows("Ankara"));
    EXPECT_TRUE(shows("Europe/Istanbul"));
    EXPECT_EQ(control<QLineEdit>("Name of the city")->text(), "");
    addFirstOf("ankara");
    EXPECT_EQ(stored(), "Kathmandu* Ankara");
    EXPECT_TRUE(told.join(' ').contains("Ankara is already in your list"));
}

TEST_F(CitiesPage, ShowsCountryAndRegionWithEachHit) {
    search("springfield");
    EXPECT_GT(control<QListWidget>("Cities found")->count(), 2);
    EXPECT_TRUE(control<QListWidget>("Cities found")->item(0)->text().contains("United States"));
    EXPECT_TRUE(button("Add")->isEnabled());
}

TEST_F(CitiesPage, MakesACityHomeAtOnce) {
    search("ankara");
    press("Make it home");
    EXPECT_EQ(stored(), "Kathmandu Ankara*");
    press("Kathmandu: home city");
    EXPECT_EQ(stored(), "Kathmandu* Ankara");
}

TEST_F(CitiesPage, MovesCitiesAndKeepsTheKeyboardThere) {
    addFirstOf("ankara");
    addFirstOf("izmir");
    button("Move İzmir up")->setFocus();
    press("Move İzmir up");
    EXPECT_EQ(stored(), "Kathmandu* İzmir Ankara");
    press("Move Kathmandu down");
    EXPECT_EQ(stored(), "İzmir Kathmandu* Ankara");
}

TEST_F(CitiesPage, BringsBackWhatWasRemoved) {
    addFirstOf("ankara");
    const CityRecord ankara = *database().cities().at(1).city;
    conventions::Method method;
    method.key = "diyanet";
    app::chooseMethod(session, ankara, method);
    press("Ankara: home city");
    press("Remove Ankara");
    EXPECT_EQ(stored(), "Kathmandu*");
    EXPECT_TRUE(shows("Ankara was removed."));
    press("Undo");
    EXPECT_EQ(stored(), "Kathmandu Ankara*");
    EXPECT_EQ(database().home()->city->choice.method.key, "diyanet");
}

TEST_F(CitiesPage, AddsAPlaceByItsCoordinates) {
    control<QDoubleSpinBox>("Latitude")->setValue(39.5);
    control<QDoubleSpinBox>("Longitude")->setValue(32.5);
    EXPECT_TRUE(shows("Time zone: Europe/Istanbul."));
    EXPECT_FALSE(button("Add this place")->isEnabled());
    QTest::keyClicks(control<QLineEdit>("Name of the place"), "Our village");
    press("Add this place");
    const UserCity added = database().cities().at(1);
    EXPECT_LT(added.id, 0);
    EXPECT_EQ(added.city->name, "Our village");
    EXPECT_DOUBLE_EQ(added.city->latitude, 39.5);
    EXPECT_EQ(added.city->zone, "Europe/Istanbul");
}

TEST_F(CitiesPage, ShowsWhatOtherProgramsChange) {
    app::changeCities(session, [](UserDatabase& database) { database.addCity(104515); });
    shown->refreshSoon();
    settle();
    EXPECT_TRUE(shows("Mecca"));
}

}  // namespace
}  // namespace quode::test
