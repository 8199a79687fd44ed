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
// digits, and the letters of the language. Single letters are measured without the font's rules for their sequence.
void findFonts(const QString& sample) {
    const Settings settings;
    for (const auto& name : {settings.fontName, std::string(signFont)}) {
        const QFontMetricsF metrics(fontNamed(name, settings.fontSize));
        for (const QChar letter : "A1" + sample) metrics.horizontalAdvance(letter);
    }
}

}  // namespace

std::jthread readFonts(const std::string& sample) {
    return std::jthread([sample = QString::fromStdString(sample)] { findFonts(sample); });
}

}  // namespace quode::host
