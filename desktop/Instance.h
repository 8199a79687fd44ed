// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace quode {

/// Makes this process the only one of its program in the session, known by a name on the session's bus. Without a bus
/// every process is the only one.
class Instance : public QObject {
    Q_OBJECT

  public:
    /// @param program  the last part of the names, such as "Panel" of "org.quode.Panel"
    explicit Instance(const QString& program);
    ~Instance() override;

    /// False when another process of the program runs.
    bool isFirst() const { return isFirst_; }

    /// Asks the other process to present itself.
    /// @param page  what it is to show, where it has several pages; may be empty
    /// @return whether it said that it did
    bool presentOther(const QString& page = {}) const;

  public Q_SLOTS:
    Q_SCRIPTABLE void Present() { Q_EMIT presentAsked({}); }
    Q_SCRIPTABLE void PresentPage(const QString& page) { Q_EMIT presentAsked(page); }

  Q_SIGNALS:
    /// Another start of the program asks for it.
    void presentAsked(const QString& page);

  private:
    QString name_, path_;
    bool isFirst_ = true;
};

}  // namespace quode
