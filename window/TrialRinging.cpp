// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/TrialRinging.h"

#include <QCoreApplication>

#include "astro/prayer.h"
#include "texts/translation.h"

namespace quode::window {
namespace {

constexpr int patience = 2000;  // ms
constexpr const char* seconds = "8";

}  // namespace

TrialRinging::TrialRinging(QObject* parent) : QObject(parent) {
    connect(&program_, &QProcess::stateChanged, this, &TrialRinging::changed);
    connect(&program_, &QProcess::finished, this, &TrialRinging::report);
    connect(&program_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Q_EMIT failed(program_.program() + ": " + program_.errorString());
    });
}

TrialRinging::~TrialRinging() {
    disconnect(&program_, nullptr, this, nullptr);
    stop();
}

void TrialRinging::ring(int code) {
    start({QString::number(alarmNumber(code))});
}

void TrialRinging::play(const QString& sound) {
    start({"--sound-only", "--sound", sound});
}

void TrialRinging::start(const QStringList& arguments) {
    stop();
    isStopped_ = false;
    QStringList all{"--lang",    QString::fromUtf8(languageInUse().data(), qsizetype(languageInUse().size())),
                    "alarm",     "test",
                    "--seconds", seconds};
    program_.start(QCoreApplication::applicationDirPath() + "/quode", all << arguments);
}

void TrialRinging::stop() {
    if (!isRinging()) return;
    isStopped_ = true;
    program_.terminate();
    if (!program_.waitForFinished(patience)) program_.kill();
}

// The command writes what went wrong, a line for each, after its name.
void TrialRinging::report() {
    if (isStopped_ || program_.exitCode() == 0) return;
    QStringList lines = QString::fromUtf8(program_.readAllStandardError()).split('\n', Qt::SkipEmptyParts);
    for (QString& line : lines) {
        if (line.startsWith("quode: ")) line.remove(0, 7);
    }
    if (!lines.isEmpty()) Q_EMIT failed(lines.join(' '));
}

}  // namespace quode::window
