// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/font_reading.h"

#include <QFontMetricsF>
#include <QString>

#include "common/Settings.h"
#include "views/fonts.h"

namespace quode::host {
namespace {

// Qt keeps for the whole process which fonts stand in for one, by its name and by the script of the text: Latin letters,
// digits, and the letters of the language.
void findFonts(const QString& sample) {
    const Settings settings;
    for (const QFont& font :
         {fontNamed(settings.fontName, settings.fontSize), fontNamed(signFont, settings.fontSize), QFont()}) {
        const QFontMetricsF metrics(font);
        for (const QString& text : {QString("A"), QString("1"), sample}) metrics.horizontalAdvance(text);
    }
}

}  // namespace

std::jthread readFonts(const std::string& sample) {
    return std::jthread([sample = QString::fromStdString(sample)] { findFonts(sample); });
}

}  // namespace quode::host
