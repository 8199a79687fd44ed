// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The compass's texts and numbers, in every language of the bundle.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "common/color_schemes.h"
#include "common/text_format.h"
#include "compass/CompassView.h"
#include "compass/compass_fixture.h"
#include "compass/compass_texts.h"

namespace quode::test {
namespace {

using testing::ElementsAre;

class CompassText : public CompassFixture {
  protected:
    GlobalFuncs& services = GlobalFuncs::globalFuncs();
};

TEST_F(CompassText, IsThereInEveryLanguageWithTheSamePlaceholders) {
    const std::map<int, std::string> placeholders{{compass_text::bearing, "@"},
                                                  {compass_text::magneticBearing, "@"},
                                                  {compass_text::declination, "@"},
                                                  {compass_text::model, "@@"},
                                                  {compass_text::heading, "@"}};
    std::set<std::string> titles;
    for (const int language : {languageTurkish, languageEnglish, languageFrench, languageGerman}) {
        useLanguage(language);
        for (int id = compass_text::title; id <= compass_text::noAnswer; ++id) {
            const auto text = services.GetKeyValue(id);
            ASSERT_TRUE(text && !text->empty()) << languageName(language) << " " << id;
            const auto expected = placeholders.find(id);
            EXPECT_EQ(placeholdersOf(*text), expected == placeholders.end() ? "" : expected->second)
                << languageName(language) << " " << id;
        }
        titles.insert(*services.GetKeyValue(compass_text::title));
    }
    EXPECT_EQ(titles.size(), 4U);
}

TEST_F(CompassText, GivesBearingsDeclinationModelAndEpochAsNumbers) {
    EXPECT_THAT(compassNumbers(services, istanbul, 5.25),
                ElementsAre("Qibla : 151°40' from true north", "By a magnetic compass : 146°25'",
                            "Magnetic declination : 5°15' E", "Model IGRF-11, epoch 2010.0, extrapolated"));
    // New York: to the north-east, with a needle that points to the west of north
    EXPECT_THAT(compassNumbers(services, -58.49, -12.5),
                ElementsAre("Qibla : 58°29' from true north", "By a magnetic compass : 70°59'",
                            "Magnetic declination : 12°30' W", "Model IGRF-11, epoch 2010.0, extrapolated"));
}

TEST_F(CompassText, CountsAMagneticBearingRoundTheCircle) {
    EXPECT_THAT(compassNumbers(services, 0.0, 3.0), testing::Contains("By a magnetic compass : 357°00'"));
    EXPECT_THAT(compassNumbers(services, -359.0, -3.0), testing::Contains("By a magnetic compass : 2°00'"));
    EXPECT_THAT(compassNumbers(services, 0.001, 0.0), testing::Contains("By a magnetic compass : 0°00'"));
}

TEST_F(CompassText, RoundsAnglesWithoutEverShowingSixtyMinutes) {
    EXPECT_EQ(degreesAndMinutes(0.0), "0°00'");
    EXPECT_EQ(degreesAndMinutes(5.9999), "6°00'");
    EXPECT_EQ(degreesAndMinutes(359.9999), "0°00'");
    EXPECT_EQ(degreesAndMinutes(std::numeric_limits<double>::quiet_NaN()), "--°--'");
    EXPECT_EQ(wholeDegrees(359.6), "0°");
    EXPECT_EQ(wholeDegrees(100.5), "101°");
}

TEST_F(CompassText, NamesTheQuartersByTheLanguage) {
    EXPECT_THAT(cardinalLetters(services), ElementsAre("N", "E", "S", "W"));
    useLanguage(languageTurkish);
    EXPECT_THAT(cardinalLetters(services), ElementsAre("K", "D", "G", "B"));
    useLanguage(languageFrench);
    EXPECT_THAT(cardinalLetters(services), ElementsAre("N", "E", "S", "O"));
    useLanguage(languageGerman);
    EXPECT_THAT(cardinalLetters(services), ElementsAre("N", "O", "S", "W"));
}

TEST_F(CompassText, LacksNothingButWordsWithoutAPack) {
    device.files->contents.clear();
    services.loadLanguageFile();
    EXPECT_TRUE(compassNumbers(services, istanbul, 5.25).empty());
    const auto view = compass();
    heading->say(10.0);
    EXPECT_NEAR(view->dialView()->heading(), 15.25, 1e-4);
    EXPECT_EQ(textsOf(*view), "");
}

TEST_F(CompassText, ReportsAFormatThatDoesNotFit) {
    const std::string path = std::string(QUODE_TEST_BUNDLE) + "/" + std::string(languageFile(languageEnglish));
    device.files->contents[path] =
        "<plist "
        "version=\"1.0\"><dict><key>COMMON</key><dict><key>1106</key><string>Qibla</string></dict></dict></plist>";
    services.loadLanguageFile();
    EXPECT_EQ(compassText(services, compass_text::bearing, {"1°"}), std::nullopt);
    EXPECT_THAT(device.files->contents["/data/QuodeLog.txt"], testing::HasSubstr("Qibla"));
}

// Relative luminance and contrast as the web accessibility guidelines define them.
double luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const double a = luminance(one), b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST_F(CompassText, IsLegibleInEverySchemeAboveAnyBackground) {
    for (int scheme = 0; scheme < colorSchemeCount; ++scheme) {
        services.getSettings().uiControlColorId = scheme;
        services.updateUIColors();
        const auto view = compass();
        auto* plate = view->findChildren<CompassPlate*>().last();
        for (const QColor background : {QColor(Qt::white), QColor(Qt::black)}) {
            QImage image(plate->size(), QImage::Format_RGB32);
            image.fill(background);
            plate->render(&image, {}, {}, QWidget::DrawWindowBackground);
            const QColor ground = image.pixelColor(image.width() / 2, 3);
            const auto& first = services.firstColor();
            const QColor text = QColor::fromRgbF(float(first.red), float(first.green), float(first.blue));
            EXPECT_NE(ground, background);
            EXPECT_GE(contrast(text, ground), 4.5) << "scheme " << scheme;
        }
    }
}

}  // namespace
}  // namespace quode::test
