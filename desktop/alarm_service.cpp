// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/alarm_service.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

#include "companion/alarm_service.h"

namespace quode {

void startAlarmService(const std::filesystem::path& dataFolder) {
    const QFileInfo program(QCoreApplication::applicationDirPath() + "/quode-alarmd");
    if (!program.isExecutable() || alarmServiceRuns(dataFolder)) return;
    QProcess service;
    service.setProgram(program.filePath());
    service.setStandardInputFile(QProcess::nullDevice());
    service.startDetached();
}

}  // namespace quode
