// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the panel tells around the widget.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace quode::app {
class Session;
}

namespace quode::host {

/// The facts of one moment. Texts that are empty are not shown.
struct PanelFacts {
    QString next;                    ///< "Asr in 1 h 12 min"
    QString dates;                   ///< the civil and the Hijri date
    QStringList notes;               ///< the footnotes of the day
    std::optional<int> currentCode;  ///< the prayer whose time it is, 200..205
    std::optional<int> nextCode;     ///< the prayer that comes next
};

/// The facts of the present moment in the home city; none where no city can be read.
PanelFacts panelFacts(app::Session& session);

/// The six times of today in the home city, with city and date, as text for another program; empty without a city.
QString timesAsText(app::Session& session);

}  // namespace quode::host
