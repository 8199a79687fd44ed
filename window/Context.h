// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "app/session.h"

namespace quode::window {

/// What the pages work with: the session, and the one way in which they change something.
class Context : public QObject {
    Q_OBJECT

  public:
    /// The session must outlive the object; its messages come here from now on.
    explicit Context(app::Session& session);
    ~Context() override;

    app::Session& session() { return session_; }

    /// Does a change at once. What it throws, and what it reports, is shown.
    /// @return whether it was done
    bool change(const std::function<void()>& action);

    /// Shows a message, with a button that takes something back where there is `undo`.
    void tell(const QString& message, std::function<void()> undo = {});

    /// Opens another page of the window.
    void openPage(const QString& key) { Q_EMIT pageAsked(key); }

  Q_SIGNALS:
    /// The user's choices were written by this window.
    void changed();
    void messageGiven(const QString& message, const std::function<void()>& undo);
    void pageAsked(const QString& key);

  private:
    app::Session& session_;
    QString messages_;  // of the change that is going on
};

}  // namespace quode::window
