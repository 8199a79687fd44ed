// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Pictures of the panel, drawn without a display.
#pragma once

#include <optional>
#include <string>

#include "app/failure.h"
#include "astro/VAKDate.h"
#include "companion/language.h"
#include "platform/Environment.h"

namespace quode::host {

/// The picture that is wanted.
struct ScreenshotOptions {
    std::string file;    ///< where the PNG is written to; an older file is replaced
    double scale = 1.0;  ///< pixels per point
    bool info = false;   ///< the lines about the city are open
    bool all = false;    ///< the further times are shown
    bool compass = false;
    std::optional<std::string> city = {};  ///< as on the command line; else the city that the command line shows
    std::optional<VAKDate> date = {};      ///< else today
};

/// Draws the panel, or the compass, into a file. Makes the application object itself, once in a process. Throws
/// `app::Failure`.
app::ExitCode takeScreenshot(const Environment& environment, const LanguageChoice& language,
                             const ScreenshotOptions& options);

}  // namespace quode::host
