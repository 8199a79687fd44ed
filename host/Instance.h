// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace quode::host {

/// Makes this process the one panel of the session, known by a name on the session's bus. Without a bus every process
/// is the one.
class Instance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.quode.Panel")

  public:
    Instance();
    ~Instance() override;

    /// False when another process is the panel.
    bool isFirst() const { return isFirst_; }

    /// Asks the other process to present the panel. Returned: whether it said that it did.
    bool presentOther() const;

  public Q_SLOTS:
    Q_SCRIPTABLE void Present() { Q_EMIT presentAsked(); }

  Q_SIGNALS:
    /// Another start of the program asks for the panel.
    void presentAsked();

  private:
    bool isFirst_ = true;
};

}  // namespace quode::host
