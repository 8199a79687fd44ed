// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode {

class UserDatabase;

/// How the calendar keeps its events.
enum class CalendarLayout {
    ics,   ///< one file, "Quode.ics"
    vdir,  ///< a folder with one file per event
};

/// The name of a layout in the settings: "ics" or "vdir". Fixed values: stored.
const char* valueOf(CalendarLayout layout);

/// Which program rings.
enum class Ringer {
    quode,      ///< the alarm service
    evolution,  ///< the calendar's own reminders; the alarm service only renews the events
};

/// How the panel is laid out.
enum class PanelLayout {
    automatic,  ///< as for a tablet on a large screen that is worked by touch alone, else as for a phone
    phone,
    tablet,
};

/// What a sound can be, percent and seconds.
inline constexpr int softestSound = 10, loudestSound = 100, longestFadeIn = 60;

/// How every alarm rings.
struct RingManner {
    int volume = loudestSound;  ///< of its sound, percent of that of the desktop
    int fadeIn = 0;             ///< seconds until the sound has that volume
    bool pausesMedia = false;   ///< what plays on the desktop pauses while it sounds
    bool isUrgent = true;       ///< it is shown although the desktop does not want to be disturbed

    friend bool operator==(const RingManner&, const RingManner&) = default;
};

/// The sizes of texts that can be chosen, percent.
inline constexpr int smallestText = 100, largestText = 200;

/// The sound that every installation has.
inline constexpr const char* shippedSound = "chime";

/// The user's settings, as far as they have a meaning here.
struct UserSettings {
    std::string defaultSound = shippedSound;  ///< of alarms that are set up without one
    CalendarLayout calendarLayout = CalendarLayout::ics;
    Ringer ringer = Ringer::quode;
    std::string language = "auto";  ///< of every program; "auto": that of the locale
    PanelLayout panelLayout = PanelLayout::automatic;
    int colorScheme = 1;      ///< of the widget, 0..5
    int textSize = 100;       ///< of windows, percent
    bool hasTrayIcon = true;  ///< the panel has an icon where there is a tray
    RingManner manner = {};

    friend bool operator==(const UserSettings&, const UserSettings&) = default;
};

/// The settings of the user database; one that was never set, or holds what has no meaning, has its default.
UserSettings loadSettings(const UserDatabase& database);
void saveSettings(UserDatabase& database, const UserSettings& settings);

}  // namespace quode
