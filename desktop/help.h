// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Help and the facts about the program, for the user to read without a network.
#pragma once

#include <QString>

class QWidget;

namespace quode::app {
class Session;
}

namespace quode {

/// The help as HTML.
QString helpPage();

/// Version, data editions and licence as HTML.
QString aboutPage(app::Session& session);

/// Shows a page in a window of its own, which goes when it is closed.
void showPage(const QString& title, const QString& html, QWidget* parent);

}  // namespace quode
