// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>
#include <array>

#include "app/session.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "support/environment_of.h"
#include "support/temporary_folder.h"
#include "window/SettingsWindow.h"

namespace quode::test {

inline constexpr std::array pages = {"cities", "alarms", "times", "timetable", "look", "calendar", "about"};

/// The settings window on files of its own, in Kathmandu at a fixed moment: Saturday, 21 November 2026, 09:45 there.
class WindowTest : public testing::Test {
  protected:
    explicit WindowTest(const char* language = "en")
        : session(environmentOf({{"HOME", folder.path().string()},
                                 {"QUODE_DATA_DIR", folder.path().string()},
                                 {"XDG_CONFIG_HOME", (folder.path() / "config").string()},
                                 {"QUODE_BUNDLE_DIR", QUODE_TEST_BUNDLE},
                                 {"QUODE_NOW", "2026-11-21T04:00:00Z"},
                                 {"LC_ALL", "en_GB.UTF-8"}}),
                  app::Session::Options{LanguageChoice{language, true}}) {
        session.setCalendar(std::make_shared<UserEventStore>(folder.path(), CalendarLayout::ics));
        session.services();
        QObject::connect(&context, &window::Context::messageGiven, [this](const QString& message) { told << message; });
        context.change([&] { app::userDatabaseToChange(session); });
    }

    /// The window with a page open.
    window::SettingsWindow& open(const char* page) {
        if (!shown) shown = std::make_unique<window::SettingsWindow>(context);
        shown->show();
        shown->openPage(page);
        settle();
        return *shown;
    }

    /// Opens what is folded in: the buttons with an arrow.
    void openAllDetails() {
        for (QToolButton* const each : shown->findChildren<QToolButton*>()) {
            if (each->arrowType() == Qt::DownArrow && each->isVisible()) each->setChecked(true);
        }
        settle();
    }

    static void settle() {
        QTest::qWait(1);
        QCoreApplication::processEvents();
    }

    /// The visible control of a name or a text.
    template <typename Control>
    Control* control(const QString& name) const {
        for (Control* const each : shown->findChildren<Control*>()) {
            if (each->accessibleName() == name && each->isVisible()) return each;
        }
        ADD_FAILURE() << "There is no " << name.toStdString() << ".";
        return nullptr;
    }

    QAbstractButton* button(const QString& name) const {
        for (QAbstractButton* const each : shown->findChildren<QAbstractButton*>()) {
            const bool isCalled =
                each->accessibleName() == name || (each->accessibleName().isEmpty() && each->text() == name);
            if (isCalled && each->isVisible()) return each;
        }
        ADD_FAILURE() << "There is no button " << name.toStdString() << ".";
        return nullptr;
    }

    void press(const QString& name) const {
        QAbstractButton* const found = button(name);
        if (found == nullptr) return;
        EXPECT_TRUE(found->isEnabled()) << name.toStdString();
        QTest::keyClick(found, Qt::Key_Space);
        settle();
    }

    /// Whether a text stands anywhere on the visible page.
    bool shows(const QString& text) const {
        for (const QLabel* const label : shown->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(text)) return true;
        }
        return false;
    }

    UserDatabase database() { return app::userDatabaseToChange(session); }

    TemporaryFolder folder;
    app::Session session;
    window::Context context{session};
    QStringList told;
    std::unique_ptr<window::SettingsWindow> shown;
};

}  // namespace quode::test
