// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "platform/Clock.h"

namespace quode {

/// Tells when a moment has come by the wall clock, and when that clock was set to another time or zone, or went on
/// after the device slept, so that the moment has to be found again.
class MomentWatch : public QObject {
    Q_OBJECT

  public:
    /// Watches for a moment, in the place of the one before. Without a moment nothing is watched, and no timer runs.
    virtual void watchFor(std::optional<Clock::TimePoint> moment) = 0;

  Q_SIGNALS:
    /// The moment has come, or what it was found from has changed. It goes on watching for changes.
    void happened();
};

/// By this machine's clock. Also tells of files that were written, such as the one that names the zone.
/// @param clock  the clock of the moments; one that is stopped, or set to another time, is waited for as long as if
///               it went on from there
std::unique_ptr<MomentWatch> systemMomentWatch(const Clock& clock, std::vector<std::filesystem::path> files);

}  // namespace quode
