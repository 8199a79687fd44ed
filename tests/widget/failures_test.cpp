// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Failures stay local, and the debug log reports them.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

using testing::HasSubstr;

// A locale without names of months.
class ForgetfulLocale : public FixedLocale {
  public:
    std::string monthName(int month) const override {
        if (isForgetful) throw std::runtime_error("the months are gone");
        return FixedLocale::monthName(month);
    }
    bool isForgetful = false;
};

class Failures : public WidgetTest {
  protected:
    // A bundle with the shipped city database and an English language pack with one text replaced.
    std::string bundleWith(const std::string& text, const std::string& replacement) {
        namespace fs = std::filesystem;
        const fs::path bundle = folder.path() / "Bundle";
        fs::create_directories(bundle / "en.lproj");
        fs::create_directory_symlink(fs::path(QUODE_BUNDLE) / "database", bundle / "database");
        std::ifstream shipped(fs::path(QUODE_BUNDLE) / "en.lproj/en.plist");
        std::string content{std::istreambuf_iterator<char>(shipped), {}};
        const std::size_t place = content.find(text);
        if (place == std::string::npos) throw std::runtime_error("no text " + text);
        content.replace(place, text.size(), replacement);
        std::ofstream(bundle / "en.lproj/en.plist") << content;
        return bundle.string();
    }
};

TEST_F(Failures, OfTheDateLabelsLeaveTheRestOfTheWidget) {
    const auto locale = std::make_shared<ForgetfulLocale>();
    device.locale = locale;
    locale->isForgetful = true;
    presentWidgetFor("Istanbul");
    EXPECT_THAT(log(), HasSubstr("[11:30:20] Error in QuodeController -> refreshDateLabels\n"
                                 "[11:30:20] the months are gone\n"));
    EXPECT_EQ("", widget->cityInfoView()->labelMiladi()->text());
    EXPECT_EQ("06:06", widget->timesImsakView()->labelPrayTime()->text());
}

TEST_F(Failures, OfTheTickAreLoggedByTheirDescriptionOnly) {
    const auto locale = std::make_shared<ForgetfulLocale>();
    device.locale = locale;
    presentWidgetFor("Istanbul");
    locale->isForgetful = true;
    device.clock->show(2026, 11, 22, 0, 0, 0);
    tick();
    EXPECT_EQ("[00:00:00] the months are gone\n", log());
    EXPECT_EQ("21 November 2026", widget->cityInfoView()->labelMiladi()->text());
}

TEST_F(Failures, OfTheCityInformationKeepWhatTheLabelsHad) {
    presentWidgetFor("Istanbul");
    QuodeController::initialize(bundleWith("Qibla : %@", "Qibla : %@ %@"));
    widget->initializeParameters();
    widget->cityInfoView()->labelSunInfo()->setText("as before");
    widget->updateCityInfo();
    EXPECT_EQ(
        "[11:30:20] Error in QuodeController -> showPrayerTimes\n"
        "[11:30:20] The placeholders of the text \"Qibla : %@ %@\" do not fit its values.\n",
        log());
    EXPECT_EQ("as before", widget->cityInfoView()->labelSunInfo()->text());
    EXPECT_EQ("Qibla : 151°34'", widget->cityInfoView()->labelQibla()->text());
    widget->hostDidPresent();
    EXPECT_EQ("06:06", widget->timesImsakView()->labelPrayTime()->text());
}

TEST_F(Failures, OfTheRefreshWithoutAnyViewAreNoCrash) {
    presentWidgetFor("Istanbul");
    widget->hostDidDismiss();
    widget->calculatePrayerTimes();
    widget->updatePrayerTimes();
    widget->updateCityInfo();
    widget->timerFireMethod(VAKDateMake(22, 11, 2026, 0, 0, 0));
    EXPECT_EQ("", log());
}

TEST_F(Failures, OfTheLanguagePackLeaveTheTimes) {
    presentWidgetFor("Istanbul");
    QuodeController::initialize((folder.path() / "nowhere").string());
    widget->initializeParameters();
    widget->updateCityInfo();
    EXPECT_THAT(log(), HasSubstr("Language file not found : " + (folder.path() / "nowhere").string()));
    EXPECT_EQ("", widget->cityInfoView()->labelGMT()->text());
    EXPECT_THAT(widget->cityInfoView()->labelSunInfo()->text(), HasSubstr("07:58 / 17:41"));
}

TEST_F(Failures, OfTheWholeBundleStillBuildAWidget) {
    keepCities({{cityNamed("Istanbul"), 1}});
    QuodeController::initialize("/nowhere");
    widget = std::make_unique<QuodeController>();
    widget->hostDidPresent();
    EXPECT_EQ(317.0, widget->getWidgetHeight());
    EXPECT_EQ("", widget->timesImsakView()->labelPrayName()->text());
    EXPECT_NE(nullptr, widget->view());
}

}  // namespace
}  // namespace quode::test
