// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <memory>

namespace quode::host {

/// Tells whether the desktop shows icons in a tray, and when it begins to: a desktop may start its panel after this
/// program. Looked at by this program's own means, because Qt keeps to the first answer that it gets.
class TrayWatch : public QObject {
    Q_OBJECT

  public:
    /// Looks for a tray once.
    TrayWatch();
    ~TrayWatch() override;

    /// Whether one was there when it was last looked for.
    bool wasTrayThere() const { return wasThere_; }

    /// Waits for a tray where none was there.
    void watch();

  Q_SIGNALS:
    /// A tray has come that was not there before.
    void appeared();

  private Q_SLOTS:
    void look();

  private:
    class XSelection;

    static bool isTrayThere();

    std::unique_ptr<XSelection> selection_;  // of the older trays, while it is watched
    bool wasThere_ = false;
};

}  // namespace quode::host
