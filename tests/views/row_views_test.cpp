// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <sqlite3.h>

#include <QAccessibleActionInterface>
#include <fstream>

#include "support/temporary_folder.h"
#include "views/UICityInfoView.h"
#include "views/UICityNameView.h"
#include "views/UIFooterView.h"
#include "views/UITimesView.h"
#include "views_support.h"

namespace quode::test {
namespace {

constexpr Rect rowFrame{0.0, 0.0, 320.0, 40.0};

class Rows : public ViewsTest {
  protected:
    void expectLabel(const Label& label, Point center, Size size, const std::string& text, TextAlign align,
                     double fontSize = 15.0) {
        EXPECT_EQ(center, label.center()) << text;
        EXPECT_EQ((Size{label.frame().width, label.frame().height}), size) << text;
        EXPECT_EQ(text, label.text());
        EXPECT_EQ(align, label.textAlign()) << text;
        EXPECT_EQ("Verdana", label.fontName());
        EXPECT_EQ(fontSize, label.fontSize()) << text;
        EXPECT_EQ(globalFuncs.firstColor(), label.textColor()) << text;
        EXPECT_EQ(0, label.tag());
        EXPECT_FALSE(label.shadow());
    }

    void expectButton(const UIButtonX& button, Point center, Size size, int type, int shape, int tag, bool selectable) {
        EXPECT_EQ(center, button.center());
        EXPECT_EQ((Size{button.frame().width, button.frame().height}), size);
        EXPECT_EQ(type, button.buttonType());
        EXPECT_EQ(shape, button.buttonShape());
        EXPECT_EQ(tag, button.tag());
        EXPECT_EQ(selectable, button.selectable());
    }
};

bool isBelow(const View& row, const QWidget* lower, const QWidget* upper) {
    return row.children().indexOf(lower) < row.children().indexOf(upper);
}

// ---- a prayer time

class AlarmTaps : public UITimesViewDelegate {
  public:
    void delegateUITimesView_AlarmOnOffTapped(UIButtonX& button, UITimesView& view) override {
        selected.push_back(button.selected());
        codes.push_back(view.tag());
    }

    std::vector<bool> selected;
    std::vector<int> codes;
};

class TimesRow : public Rows {
  protected:
    TimesRow() {
        row.setTag(203);
        row.labelPrayName()->setText(globalFuncs.GetTextPrayLabels(203));
        row.setDelegate(&taps);
    }

    AlarmTaps taps;
    UITimesView row{rowFrame};
};

TEST_F(TimesRow, HoldsNameTimeAndAlarm) {
    UITimesView fresh(rowFrame);
    expectLabel(*fresh.labelPrayName(), {125.0, 20.0}, {120.0, 40.0}, "", alignLeft);
    expectLabel(*fresh.labelPrayTime(), {220.0, 20.0}, {100.0, 40.0}, "00:00", alignCenter);
    expectButton(*fresh.buttonAlarmOnOff(), {305.0, 20.0}, {50.0, 30.0}, 2, 10, 222, true);
    EXPECT_EQ(nullptr, fresh.buttonAlarmSet());
    EXPECT_TRUE(isBelow(fresh, fresh.labelPrayTime(), fresh.buttonAlarmOnOff()));
}

TEST_F(TimesRow, LetsTheAlarmButtonHangOverItsEdge) {
    const Rect& frame = row.buttonAlarmOnOff()->frame();
    EXPECT_EQ(rowFrame.width + 10.0, frame.x + frame.width);
}

TEST_F(TimesRow, PlacesItsButtonInTheMiddleOfAnyHeight) {
    const UITimesView tall({0.0, 0.0, 480.0, 61.0});
    EXPECT_EQ((Point{465.0, 30.5}), tall.buttonAlarmOnOff()->center());
    EXPECT_EQ(20.0, tall.labelPrayName()->center().y);
}

TEST_F(TimesRow, TellsItsDelegateOfATap) {
    click(*row.buttonAlarmOnOff());
    EXPECT_EQ(std::vector<bool>{true}, taps.selected);
    EXPECT_EQ(std::vector<int>{203}, taps.codes);
}

TEST_F(TimesRow, IgnoresTapsOfOtherButtonsAndNeedsNoDelegate) {
    row.buttonAlarmOnOff()->setTag(223);
    click(*row.buttonAlarmOnOff());
    EXPECT_TRUE(taps.codes.empty());
    row.buttonAlarmOnOff()->setTag(222);
    row.setDelegate(nullptr);
    click(*row.buttonAlarmOnOff());
    EXPECT_TRUE(taps.codes.empty());
}

TEST_F(TimesRow, IsReportedWithItsPrayerAndItsAlarm) {
    row.labelPrayTime()->setText("15:32");
    EXPECT_EQ((std::vector<std::string>{"Asr 15:32", "Asr", "15:32", "Alarm for Asr"}), spokenNames(row));
    EXPECT_EQ(QAccessible::Row, spokenAs(row, "Asr 15:32").role());
    QAccessibleInterface& alarm = spokenAs(row, "Alarm for Asr");
    EXPECT_EQ(QAccessible::CheckBox, alarm.role());
    EXPECT_FALSE(alarm.state().checked);
    alarm.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(alarm.state().checked);
    EXPECT_EQ(1U, taps.codes.size());
}

TEST_F(TimesRow, IsDescribedInTheLanguageChosen) {
    speak("tr");
    row.labelPrayName()->setText(globalFuncs.GetTextPrayLabels(203));
    EXPECT_NO_THROW(spokenAs(row, "Alarm: " + row.labelPrayName()->text()));
    speak("de");
    EXPECT_NO_THROW(spokenAs(row, "Wecker für " + row.labelPrayName()->text()));
    speak("fr");
    EXPECT_NO_THROW(spokenAs(row, "Alarme pour " + row.labelPrayName()->text()));
}

TEST_F(TimesRow, DisablesItsAlarmWithoutACity) {
    row.detectAlarmOnOff(-1);
    EXPECT_FALSE(row.buttonAlarmOnOff()->enabled());
    EXPECT_EQ(10, row.buttonAlarmOnOff()->buttonShape());
    EXPECT_FALSE(row.buttonAlarmOnOff()->selected());
    click(*row.buttonAlarmOnOff());
    EXPECT_TRUE(taps.codes.empty());
    EXPECT_TRUE(spokenAs(row, "Alarm for Asr").state().disabled);
}

// A user database on disk with the alarm of Ikindi (203) on and that of Aksam (204) off.
class TimesRowWithAlarms : public ViewsTest {
  protected:
    TimesRowWithAlarms() {
        const std::string path = (folder.path() / "user.sqlite").string();
        sqlite3* database = nullptr;
        EXPECT_EQ(SQLITE_OK, sqlite3_open(path.c_str(), &database));
        const char* const sql =
            "CREATE TABLE USER_ALARMS (TIMEID INTEGER, MINUTE INTEGER, PRAYTIME REAL, MELODYTIME INTEGER,"
            " MELODYNAME TEXT, ACTIVE INTEGER, EVENTID TEXT);"
            "INSERT INTO USER_ALARMS VALUES (4, 0, 15.5, 0, 'bell', 1, 'e'), (5, 0, 18.5, 0, 'bell', 0, '');";
        EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, sql, nullptr, nullptr, nullptr));
        sqlite3_close(database);
        device.dataFolder = folder.path().string();
        device.files->contents[path] = "";
        GlobalFuncs::startUp(device.platform());
    }

    TemporaryFolder folder;
};

TEST_F(TimesRowWithAlarms, ShowsTheStoredAlarm) {
    UITimesView row(rowFrame);
    row.setTag(203);
    row.detectAlarmOnOff(0);
    EXPECT_EQ(9, row.buttonAlarmOnOff()->buttonShape());
    EXPECT_TRUE(row.buttonAlarmOnOff()->selected());
    EXPECT_TRUE(row.buttonAlarmOnOff()->enabled());
    row.setTag(204);
    row.detectAlarmOnOff(0);
    EXPECT_EQ(10, row.buttonAlarmOnOff()->buttonShape());
    EXPECT_FALSE(row.buttonAlarmOnOff()->selected());
    row.setTag(205);
    row.detectAlarmOnOff(0);
    EXPECT_EQ(10, row.buttonAlarmOnOff()->buttonShape());
}

// ---- the city

class CityTaps : public UICityNameViewDelegate {
  public:
    void delegateUICityNameView_CompassTapped(UIButtonX& button, UICityNameView&) override {
        compass.push_back(&button);
    }
    void delegateUICityNameView_CityInfoTapped(UIButtonX& button, UICityNameView&) override {
        information.push_back(button.selected());
    }

    std::vector<UIButtonX*> compass;
    std::vector<bool> information;
};

class CityNameRow : public Rows {
  protected:
    CityNameRow() { row.setDelegate(&taps); }

    CityTaps taps;
    UICityNameView row{rowFrame};
};

TEST_F(CityNameRow, HoldsNameCompassAndInformation) {
    expectLabel(*row.labelCityName(), {(320.0 - 50.0) * 0.5 + 65.0, 20.0}, {270.0, 40.0}, "", alignLeft);
    expectButton(*row.buttonCompass(), {255.0, 20.0}, {50.0, 30.0}, 2, 7, 226, false);
    expectButton(*row.buttonCityInfo(), {305.0, 20.0}, {50.0, 30.0}, 2, 8, 224, true);
    EXPECT_EQ(globalFuncs.thirdColor(), row.buttonCompass()->enabledColor());
    EXPECT_EQ(alignCenter, row.buttonCityInfo()->text()->textAlign());
    EXPECT_TRUE(isBelow(row, row.labelCityName(), row.buttonCompass()));
}

TEST_F(CityNameRow, TellsItsDelegateWhichButtonWasTapped) {
    click(*row.buttonCompass());
    EXPECT_EQ(std::vector<UIButtonX*>{row.buttonCompass()}, taps.compass);
    EXPECT_FALSE(row.buttonCompass()->selected());
    click(*row.buttonCityInfo());
    click(*row.buttonCityInfo());
    EXPECT_EQ((std::vector<bool>{true, false}), taps.information);
    row.buttonCompass()->setTag(222);
    click(*row.buttonCompass());
    EXPECT_EQ(1U, taps.compass.size());
    row.setDelegate(nullptr);
    click(*row.buttonCityInfo());
    EXPECT_EQ(2U, taps.information.size());
}

TEST_F(CityNameRow, IsDescribedInReadingOrder) {
    row.labelCityName()->setText("Istanbul");
    EXPECT_EQ((std::vector<std::string>{"City", "Istanbul", "Qibla compass", "City information"}), spokenNames(row));
    EXPECT_EQ(QAccessible::Button, spokenAs(row, "Qibla compass").role());
    QAccessibleInterface& information = spokenAs(row, "City information");
    EXPECT_EQ(QAccessible::CheckBox, information.role());
    information.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(information.state().checked);
    EXPECT_EQ(std::vector<bool>{true}, taps.information);
}

TEST_F(CityNameRow, DoesNotTellOfAHiddenCompass) {
    row.buttonCompass()->hide();
    EXPECT_THROW(spokenAs(row, "Qibla compass"), std::runtime_error);
}

TEST_F(Rows, CityInformationHasSevenLinesTwoPointsLarger) {
    UICityInfoView view({0.0, 0.0, 320.0, 280.0});
    const Label* lines[] = {view.labelMiladi(),  view.labelHijri(),    view.labelGMT(),         view.labelQibla(),
                            view.labelSunInfo(), view.labelMoonInfo(), view.labelMoonOnSunSet()};
    double centerY = 20.0;
    for (const Label* line : lines) {
        expectLabel(*line, {(320.0 - 65.0) * 0.5 + 65.0, centerY}, {255.0, 40.0}, "", alignLeft, 17.0);
        centerY += 40.0;
    }
    EXPECT_EQ(7, view.findChildren<Label*>().size());
    EXPECT_EQ(QAccessible::Row, spokenAs(view, "Details of the city").role());
}

// ---- the footer

class ShowAllTaps : public UIFooterViewDelegate {
  public:
    void delegateUIFooterView_ShowAllTapped(UIFooterView& footer, bool showAll) override {
        states.push_back(showAll);
        captions.push_back(footer.buttonShowAll()->text()->text());
    }

    std::vector<bool> states;
    std::vector<std::string> captions;
};

class FooterRow : public Rows {
  protected:
    FooterRow() { row.setDelegate(&taps); }

    ShowAllTaps taps;
    UIFooterView row{rowFrame};
};

TEST_F(FooterRow, HoldsTheShowAllButton) {
    expectButton(*row.buttonShowAll(), {115.0, 20.0}, {100.0, 30.0}, 0, 0, 225, true);
    EXPECT_EQ(globalFuncs.thirdColor(), row.buttonShowAll()->selectedColor());
    EXPECT_EQ(alignLeft, row.buttonShowAll()->text()->textAlign());
    EXPECT_EQ("", row.buttonShowAll()->text()->text());
}

TEST_F(FooterRow, TakesStateAndCaptionTogether) {
    row.setButtonShowAllState(true);
    EXPECT_TRUE(row.buttonShowAll()->selected());
    EXPECT_EQ("Show less", row.buttonShowAll()->text()->text());
    row.setButtonShowAllState(false);
    EXPECT_FALSE(row.buttonShowAll()->selected());
    EXPECT_EQ("Show all", row.buttonShowAll()->text()->text());
    EXPECT_TRUE(taps.states.empty());
}

TEST_F(FooterRow, ChangesItsCaptionBeforeItTellsItsDelegate) {
    row.setButtonShowAllState(false);
    click(*row.buttonShowAll());
    click(*row.buttonShowAll());
    EXPECT_EQ((std::vector<bool>{true, false}), taps.states);
    EXPECT_EQ((std::vector<std::string>{"Show less", "Show all"}), taps.captions);
}

TEST_F(FooterRow, IgnoresOtherTagsAndShowsNothingWithoutATextPack) {
    row.setButtonShowAllState(false);
    row.buttonShowAll()->setTag(226);
    click(*row.buttonShowAll());
    EXPECT_TRUE(taps.states.empty());
    globalFuncs.setApplicationBundlePath("/nowhere");
    globalFuncs.loadLanguageFile();
    row.setButtonShowAllState(true);
    EXPECT_EQ("", row.buttonShowAll()->text()->text());
}

TEST_F(FooterRow, IsWorkedByItsSpokenName) {
    row.setButtonShowAllState(false);
    EXPECT_EQ((std::vector<std::string>{"Further prayer times", "Show all"}), spokenNames(row));
    QAccessibleInterface& button = spokenAs(row, "Show all");
    button.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ("Show less", button.text(QAccessible::Name).toStdString());
    EXPECT_EQ(std::vector<bool>{true}, taps.states);
}

}  // namespace
}  // namespace quode::test
