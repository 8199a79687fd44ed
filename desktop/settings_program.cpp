// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/settings_program.h"

#include <QCoreApplication>
#include <QProcess>

#include "texts/translation.h"

namespace quode {

bool openSettings(const QString& page) {
    QProcess window;
    window.setProgram(QCoreApplication::applicationDirPath() + "/quode-settings");
    QStringList arguments{"--lang", QString::fromStdString(std::string(languageInUse()))};
    if (!page.isEmpty()) arguments << "--page" << page;
    window.setArguments(arguments);
    window.setStandardInputFile(QProcess::nullDevice());
    return window.startDetached();
}

}  // namespace quode
