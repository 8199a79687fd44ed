// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QListWidget>
#include <set>

#include "desktop/WindowStyle.h"
#include "desktop/theme.h"
#include "fixture.h"
#include "views/contrast.h"

namespace quode::test {
namespace {

class Window : public WindowTest {
  protected:
    /// What can have the keyboard on the page that is open.
    std::vector<QWidget*> reachable() const {
        std::vector<QWidget*> found;
        for (QWidget* const each : shown->findChildren<QWidget*>()) {
            const bool takesTab = (each->focusPolicy() & Qt::TabFocus) != 0 && each->focusProxy() == nullptr;
            if (takesTab && each->isVisible() && each->isEnabled()) found.push_back(each);
        }
        return found;
    }
};

TEST_F(Window, NamesAllControls) {
    for (const char* page : pages) {
        open(page);
        openAllDetails();
        EXPECT_GE(reachable().size(), 3U) << page;
        for (QWidget* const each : reachable()) {
            const auto* const spoken = QAccessible::queryAccessibleInterface(each);
            ASSERT_NE(spoken, nullptr) << page;
            EXPECT_NE(spoken->text(QAccessible::Name), "") << page << " " << each->metaObject()->className();
            EXPECT_NE(spoken->role(), QAccessible::NoRole) << page;
        }
    }
}

TEST_F(Window, HasTheRoleOfAWindow) {
    open("cities");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(shown.get())->role(), QAccessible::Window);
}

// The desktop may tell what it prefers before the window is shown, and at any time after it.
TEST_F(Window, BecomesDarkAndLightAsAWhole) {
    shown = std::make_unique<window::SettingsWindow>(context);
    wearTheme(true);
    open("cities");
    const auto* const list = shown->findChild<QListWidget*>();
    const QPoint belowTheList = list->mapTo(shown.get(), QPoint(list->width() / 2, list->height() - 5));
    for (const bool isDark : {true, false}) {
        wearTheme(isDark);
        settle();
        EXPECT_EQ(shown->grab().toImage().pixelColor(belowTheList), windowPalette(isDark).color(QPalette::Base));
    }
}

TEST_F(Window, GivesSwitchesTheRoleAndStateOfACheckBox) {
    open("alarms");
    auto* const alarm = button(QString::fromStdString(session.prayerName(204)));
    const auto* const spoken = QAccessible::queryAccessibleInterface(alarm);
    EXPECT_EQ(spoken->role(), QAccessible::CheckBox);
    EXPECT_FALSE(spoken->state().checked);
    press(alarm->accessibleName());
    EXPECT_TRUE(spoken->state().checked);
}

TEST_F(Window, IsReachedByTabEverywhere) {
    for (const char* page : pages) {
        open(page);
        openAllDetails();
        shown->activateWindow();
        std::set<QWidget*> left;
        for (QWidget* const each : reachable()) left.insert(each);
        QWidget* focus = *left.begin();
        for (std::size_t step = 0, most = left.size() * 2; step < most && !left.empty(); ++step) {
            do {
                focus = focus->nextInFocusChain();
            } while (!left.contains(focus) && focus != shown.get());
            left.erase(focus);
        }
        EXPECT_TRUE(left.empty()) << page;
    }
}

TEST_F(Window, IsMirroredForLanguagesFromRightToLeft) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    open("alarms");
    shown->resize(820, 640);
    settle();
    auto* const list = control<QListWidget>("Pages");
    auto* const alarm = button(QString::fromStdString(session.prayerName(204)));
    EXPECT_GT(list->x(), shown->width() / 2);
    EXPECT_LT(alarm->mapTo(shown.get(), QPoint()).x(), shown->width() / 2);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(Window, ChangesThePageByKeys) {
    open("cities");
    shown->activateWindow();
    QTest::keyClick(control<QListWidget>("Pages"), Qt::Key_Down);
    EXPECT_EQ(shown->openedPage(), "alarms");
}

TEST(WindowPalette, HasEnoughContrastInBothThemes) {
    const auto colorOf = [](const QPalette& palette, QPalette::ColorRole role) {
        const QColor color = palette.color(QPalette::Active, role);
        return Color{color.redF(), color.greenF(), color.blueF(), 1.0};
    };
    using Role = QPalette::ColorRole;
    constexpr std::array<std::pair<Role, Role>, 11> pairs{{{Role::WindowText, Role::Window},
                                                           {Role::WindowText, Role::Base},
                                                           {Role::Text, Role::Base},
                                                           {Role::Text, Role::AlternateBase},
                                                           {Role::ButtonText, Role::Button},
                                                           {Role::PlaceholderText, Role::Base},
                                                           {Role::PlaceholderText, Role::Window},
                                                           {Role::HighlightedText, Role::Highlight},
                                                           {Role::ToolTipText, Role::ToolTipBase},
                                                           {Role::WindowText, Role::ToolTipBase},
                                                           {Role::Link, Role::Base}}};
    for (const bool isDark : {false, true}) {
        const QPalette palette = windowPalette(isDark);
        for (const auto& [front, back] : pairs) {
            EXPECT_GE(contrastRatio(colorOf(palette, front), colorOf(palette, back)), 4.5)
                << isDark << " " << front << " on " << back;
        }
        EXPECT_GE(contrastRatio(colorOf(palette, Role::Dark), colorOf(palette, Role::Base)), 3.0)
            << "the frame of a switch";
    }
}

}  // namespace
}  // namespace quode::test
