// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The program, run as a user runs it on a machine without a display.
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>

#include "support/temporary_folder.h"

namespace quode::test {
namespace {

constexpr int patience = 20000;  // ms

struct Outcome {
    int code = -1;
    std::string out, err;
};

class PanelProgram : public testing::Test {
  protected:
    PanelProgram() {
        const QString home = path("home");
        std::filesystem::create_directory(home.toStdString());
        for (const auto& [name, value] :
             std::initializer_list<std::pair<QString, QString>>{{"HOME", home},
                                                                {"PATH", "/usr/bin:/bin"},
                                                                {"LC_ALL", "en_GB.UTF-8"},
                                                                {"TZ", "Europe/Istanbul"},
                                                                {"QUODE_NOW", "2026-11-21T04:00:00Z"}}) {
            environment.insert(name, value);
        }
    }

    QString path(const char* name) const { return QString::fromStdString((folder.path() / name).string()); }

    Outcome run(const QStringList& arguments) const {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QUODE_PANEL, arguments);
        EXPECT_TRUE(process.waitForFinished(patience));
        const int code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        return {code, process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
    }

    /// The picture that the program draws with these arguments, without saying anything.
    QImage picture(QStringList arguments) const {
        const QString file = path("panel.png");
        const Outcome outcome = run(QStringList{"--screenshot", file} + arguments);
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        EXPECT_EQ(outcome.out + outcome.err, "");
        return QImage(file).convertToFormat(QImage::Format_ARGB32);
    }

    void expectFailure(const QStringList& arguments, int code, const std::string& part) const {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, code);
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(outcome.err.starts_with("quode-panel: ")) << outcome.err;
        EXPECT_NE(outcome.err.find(part), std::string::npos) << outcome.err;
    }

    /// How many pixels of an area are nearer to a colour than to black.
    static int count(const QImage& image, const QRect& area, QColor colour) {
        int found = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                const int distance = std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                                     std::abs(pixel.blue() - colour.blue());
                if (distance < 60) ++found;
            }
        }
        return found;
    }

    TemporaryFolder folder;
    QProcessEnvironment environment;
};

// City, times and footer, and the padding around them. The row of the religious days may add to it, and what the panel
// tells above and below does.
constexpr int plainHeight = 40 + 240 + 37 + 16, mostAround = 200;

TEST_F(PanelProgram, DrawsThePanelInItsWholeSize) {
    const QImage image = picture({"--city", "Istanbul"});
    EXPECT_EQ(image.width(), 340);
    EXPECT_GE(image.height(), plainHeight);
    EXPECT_LE(image.height(), plainHeight + 40 + mostAround);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);  // outside the round corner
    EXPECT_EQ(image.pixelColor(0, image.height() - 1).alpha(), 0);
    EXPECT_EQ(image.pixelColor(25, 4), QColor(246, 245, 244));
    EXPECT_EQ(image.pixelColor(4, 200), QColor(14, 14, 16));
    // The name of the city in the lightest colour of the scheme, and the frames of the bells in the third.
    EXPECT_GT(count(image, {50, 60, 100, 80}, QColor(219, 238, 226)), 40);
    EXPECT_GT(count(image, {290, 110, 40, 80}, QColor(119, 196, 211)), 40);
}

TEST_F(PanelProgram, DrawsTheSamePictureEveryTime) {
    EXPECT_EQ(picture({"--city", "Istanbul"}), picture({"--city", "Istanbul"}));
    EXPECT_NE(picture({"--city", "Istanbul"}), picture({"--city", "Ankara"}));
    EXPECT_NE(picture({"--city", "Istanbul"}), picture({"--city", "Istanbul", "--date", "2026-06-21"}));
    EXPECT_NE(picture({"--city", "Istanbul"}), picture({"--city", "Istanbul", "--lang", "tr"}));
}

TEST_F(PanelProgram, DrawsLargerPixels) {
    const QSize plain = picture({"--city", "Istanbul"}).size();
    EXPECT_EQ(picture({"--city", "Istanbul", "--scale", "2"}).size(), plain * 2);
}

TEST_F(PanelProgram, OpensTheRowsThatAreAskedFor) {
    const int plain = picture({"--city", "Istanbul"}).height();
    EXPECT_EQ(picture({"--city", "Istanbul", "--info"}).height(), plain + 280);
    EXPECT_EQ(picture({"--city", "Istanbul", "--all"}).height(), plain + 120);
    EXPECT_EQ(picture({"--city", "Istanbul", "--info", "--all"}).height(), plain + 400);
}

TEST_F(PanelProgram, DrawsTheCompass) {
    const QImage image = picture({"--city", "Istanbul", "--compass"});
    EXPECT_EQ(image.size(), QSize(360, 640));
    EXPECT_GT(count(image, {150, 170, 60, 40}, QColor(255, 127, 100)), 10);  // the mark of the north, at the top
}

TEST_F(PanelProgram, LeavesTheUsersFilesAlone) {
    picture({"--city", "Istanbul"});
    picture({});
    EXPECT_TRUE(std::filesystem::is_empty(folder.path() / "home"));
}

TEST_F(PanelProgram, ShowsTheCityOfTheSystemsZoneWithoutAnother) {
    const QImage ofZone = picture({}), chosen = picture({"--city", "Istanbul"});
    EXPECT_EQ(ofZone.copy(0, 0, ofZone.width(), plainHeight), chosen.copy(0, 0, chosen.width(), plainHeight));
    EXPECT_GT(ofZone.height(), chosen.height()) << "a note says that the city is a guess";
    environment.insert("QUODE_CITY", "Ankara");
    EXPECT_EQ(picture({}), picture({"--city", "Ankara"}));
}

TEST_F(PanelProgram, SaysInAPictureThatACityIsShownBecauseTheZoneHasNone) {
    environment.insert("TZ", "UTC");
    const QImage fallback = picture({}), chosen = picture({"--city", "Mecca"});
    EXPECT_EQ(fallback.copy(0, 0, fallback.width(), plainHeight), chosen.copy(0, 0, chosen.width(), plainHeight));
    EXPECT_NE(fallback, chosen) << "a note says that the zone has no city, in place of the usual method of the country";
}

TEST_F(PanelProgram, ReplacesAnOlderPicture) {
    const QImage first = picture({"--city", "Ankara"});
    EXPECT_NE(first, picture({"--city", "Istanbul"}));
}

TEST_F(PanelProgram, DrawsWithoutADisplayWhateverQtShouldUse) {
    environment.insert("QT_QPA_PLATFORM", "xcb");
    EXPECT_EQ(picture({}).width(), 340);
}

TEST_F(PanelProgram, SaysWhatIsWrong) {
    const QString file = path("panel.png");
    expectFailure({"--screenshot", file, "--city", "Nowheretown"}, 1, "No city is called \"Nowheretown\"");
    expectFailure({"--screenshot", file, "--city", "91,0"}, 2, "Latitude 91 is out of range");
    expectFailure({"--screenshot", file, "--date", "21.11.2026"}, 2, "YYYY-MM-DD");
    expectFailure({"--screenshot", path("no/such/folder.png"), "--city", "Istanbul"}, 4, "cannot be written");
    expectFailure({"--all"}, 2, "add --screenshot FILE");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "panel.png"));
}

TEST_F(PanelProgram, SaysThatTheBundleIsMissing) {
    environment.insert("QUODE_BUNDLE_DIR", path("nowhere"));
    expectFailure({"--screenshot", path("panel.png"), "--city", "Istanbul"}, 3, "Install Quode again");
}

TEST_F(PanelProgram, SaysThatThereIsNoDisplay) {
    expectFailure({}, 1, "There is no display");
    environment.insert("DISPLAY", ":4711");
    expectFailure({}, 1, "--screenshot");
    environment.insert("QT_QPA_PLATFORM", "xcb");
    expectFailure({}, 1, "To print the times: quode");
    environment.insert("QT_QPA_PLATFORM", "wayland");
    environment.insert("WAYLAND_DISPLAY", "wayland-4711");
    expectFailure({}, 1, "qt6-wayland");
}

TEST_F(PanelProgram, ExplainsItself) {
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.out.find("--screenshot FILE"), std::string::npos) << help.out;
    const Outcome version = run({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.out.starts_with("quode-panel ")) << version.out;
}

}  // namespace
}  // namespace quode::test
