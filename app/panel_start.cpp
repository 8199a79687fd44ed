// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/panel_start.h"

#include "app/failure.h"
#include "app/session.h"
#include "companion/autostart.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode::app {

bool panelStartsAtLogin(Session& session) {
    return programStartsAtLogin(session.environment(), "quode-panel");
}

void startPanelAtLogin(Session& session, bool isWanted) {
    const std::filesystem::path program = executablePath().parent_path() / "quode-panel";
    const std::string problem = setStartAtLogin(session.environment(), program, isWanted);
    if (!problem.empty()) {
        throw Failure(ExitCode::userData, _("The start at login cannot be changed: {}.", problem));
    }
}

}  // namespace quode::app
