// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QComboBox>
#include <filesystem>
#include <fstream>
#include <set>

#include "app/panel_start.h"
#include "companion/UserSettings.h"
#include "fixture.h"

namespace quode::test {
namespace {

class LookPage : public WindowTest {
  protected:
    LookPage() { open("look"); }

    UserSettings stored() { return loadSettings(database()); }

    void choose(const QString& box, const QVariant& value) {
        auto* const found = control<QComboBox>(box);
        ASSERT_GE(found->findData(value), 0) << box.toStdString();
        found->setCurrentIndex(found->findData(value));
        Q_EMIT found->activated(found->currentIndex());
        settle();
    }
};

TEST_F(LookPage, DrawsSixSchemesOfWhichOneIsChosen) {
    std::set<QRgb> colors;
    for (int scheme = 1; scheme <= 6; ++scheme) {
        QAbstractButton* const picture = button("Scheme " + QString::number(scheme));
        const QImage image = picture->grab().toImage();
        std::map<QRgb, int> counts;
        for (int y = 10; y < image.height() - 10; ++y) {
            for (int x = 10; x < image.width() - 10; ++x) ++counts[image.pixel(x, y)];
        }
        EXPECT_GT(counts.size(), 20U) << "letters are drawn";
        QRgb brightest = 0;
        for (const auto& each : counts) brightest = qGray(each.first) > qGray(brightest) ? each.first : brightest;
        colors.insert(brightest);
    }
    EXPECT_GE(colors.size(), 5U);
    EXPECT_TRUE(button("Scheme 2")->isChecked());
    press("Scheme 5");
    EXPECT_EQ(stored().colorScheme, 4);
    EXPECT_TRUE(button("Scheme 5")->isChecked());
    EXPECT_FALSE(button("Scheme 2")->isChecked());
}

TEST_F(LookPage, KeepsWhatIsChosen) {
    choose("Size of texts", "150");
    choose("Layout of the panel", "tablet");
    choose("Language", "tr");
    press("Icon in the tray");
    EXPECT_EQ(stored().textSize, 150);
    EXPECT_EQ(stored().panelLayout, PanelLayout::tablet);
    EXPECT_EQ(stored().language, "tr");
    EXPECT_FALSE(stored().hasTrayIcon);
    EXPECT_TRUE(told.isEmpty()) << told.join(' ').toStdString();
}

TEST_F(LookPage, SwitchesTheStartAtLogin) {
    const std::filesystem::path entry = folder.path() / "config/autostart/quode-panel.desktop";
    press("Start the panel at login");
    ASSERT_TRUE(std::filesystem::exists(entry));
    press("Start the panel at login");
    EXPECT_FALSE(app::panelStartsAtLogin(session));
    std::ifstream file(entry);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(text.find("Hidden=true"), std::string::npos) << text;
}

}  // namespace
}  // namespace quode::test
