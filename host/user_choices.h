// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the user has chosen, as it has to be when the widget reads it.
#pragma once

#include <QString>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "app/session.h"
#include "companion/UserDatabase.h"
#include "companion/UserEventStore.h"
#include "companion/UserSettings.h"
#include "host/Panel.h"

namespace quode::host {

struct Preparation {
    QString notice;         ///< what to report to the user; empty when all is well
    bool isLocked = false;  ///< another program kept the user database locked: the notice holds only for now
};

/// Creates the user database when there is none, and updates what the widget reads: the prayer times of the
/// alarms, and the layout of the calendar.
Preparation prepareUserChoices(app::Session& session, UserEventStore& calendar);

/// The user database, kept as it is for as long as the object lives: whatever this process reads from it meanwhile, no
/// other program can lock it or change it. The object must not live while this process itself is to change it.
class HeldChoices {
  public:
    explicit HeldChoices(app::Session& session);
    ~HeldChoices();
    HeldChoices(const HeldChoices&) = delete;
    HeldChoices& operator=(const HeldChoices&) = delete;

    /// True when another program had locked the database already, so that what is read now may fail.
    bool isLocked() const { return isLocked_; }

  private:
    std::unique_ptr<UserDatabase> database_;
    bool isLocked_ = false;
};

/// Speaks the language that the settings name now, by the rule of `chosenLanguage`. What cannot be read changes nothing.
void followLanguage(app::Session& session, const std::optional<std::string>& option);

/// The layout that the user has chosen for the panel; automatic when that cannot be read.
PanelLayout chosenLayout(app::Session& session);

/// The size of texts that the user has chosen, percent; the usual one when that cannot be read.
int textSize(app::Session& session);

/// Whether the user wants an icon in the tray; so it is when that cannot be read.
bool wantsTrayIcon(app::Session& session);

/// Whether all alarms are muted now.
bool alarmsAreMuted(app::Session& session);

/// Everything that the widget is built from, in one text: home city, its method and
/// timetable, colour scheme, language. What cannot be read is empty.
std::string shownChoices(app::Session& session);

/// The name of the home city; empty when there is none, or when that cannot be read.
std::string homeName(app::Session& session);

/// The colour scheme that the user has chosen for the widget; the usual one when that cannot be read.
int chosenColorScheme(app::Session& session);

/// Which alarms are on, by the codes of their prayers; nothing when that cannot be read.
std::optional<std::map<int, bool>> alarmStates(app::Session& session);

/// Which rows of the widget were open last.
OpenRows rememberedRows(app::Session& session);

/// Sees to it that the service of the alarms starts at the next login, where an alarm is on.
/// @return what the user should know; empty when it was so before
QString assureAlarmsAfterLogin(app::Session& session);

// These change the user's choices.
// Returns what went wrong, for the user to read; empty when all is well.
QString rememberRows(app::Session& session, OpenRows rows);
QString chooseColorScheme(app::Session& session, int scheme);
QString makeHome(app::Session& session, int city);
/// Mutes all alarms until tomorrow, or lets them ring again.
QString muteAlarms(app::Session& session, bool isMuted);

/// Whether the times of the home city cannot be shown now, though one was chosen: the user database is locked or cannot
/// be read, or the city is no longer in the city database.
bool homeIsMissing(app::Session& session);

/// Makes a user database in an empty folder, which is removed soon, whose only city is this one.
/// @param isGuess  the user has not chosen it: it stays marked so where a new database begins with it
void makeUserDatabase(app::Session& session, const CityRecord& city, bool isGuess = false);

}  // namespace quode::host
