// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "common/color_schemes.h"

namespace quode {

/// The general settings of the widget. Fixed names: all fields.
///
/// @code
///   quode::Settings settings;
///   settings.uiControlColorId = 3;  // a colour scheme 0..5
///   quode::GlobalFuncs::globalFuncs().setGeneralSettings(settings);
///   quode::GlobalFuncs::globalFuncs().updateUIColors();
/// @endcode
struct Settings {
    std::int32_t buttonType = 1;                         ///< drawing style of the drawn buttons
    std::int32_t buttonShape = 5;                        ///< shape of the drawn buttons
    bool languageChanged = false;                        ///< the language was changed and labels must be rebuilt
    std::int32_t language = 0;                           ///< chosen language
    bool fontChanged = false;                            ///< the font was changed
    std::string fontName = "Verdana";                    ///< font of the labels
    std::int32_t fontSize = 15;                          ///< points
    std::int32_t uiControlColorId = defaultColorScheme;  ///< colour scheme, 0..5

    friend bool operator==(const Settings&, const Settings&) = default;
};

}  // namespace quode
