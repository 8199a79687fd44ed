// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QProcess>
#include <QStringList>

namespace quode::window {

/// Rings on trial, as "quode alarm test" does, while the window goes on.
class TrialRinging : public QObject {
    Q_OBJECT

  public:
    explicit TrialRinging(QObject* parent);
    ~TrialRinging() override;

    bool isRinging() const { return program_.state() != QProcess::NotRunning; }

    /// Rings for a prayer, 200 to 205, with notification and sound. What rings already is stopped.
    void ring(int code);

    /// Plays a sound alone.
    void play(const QString& sound);

    void stop();

  Q_SIGNALS:
    /// It begins or ends.
    void changed();
    /// What went wrong.
    void failed(const QString& message);

  private:
    void start(const QStringList& arguments);
    void report();

    QProcess program_;
    bool isStopped_ = false;
};

}  // namespace quode::window
