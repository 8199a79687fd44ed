// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/desktop.h"

#include "app/failure.h"
#include "platform/module.h"
#include "texts/translation.h"

namespace quode::app {

const Desktop& desktop() {
    const ModuleSymbol operations = loadModule("quode-desktop.so", desktopSymbol);
    if (operations.address) return *static_cast<const Desktop*>(operations.address);
    throw Failure(ExitCode::damagedData,
                  _("The desktop part of Quode cannot be loaded: {}. Install Quode again.", operations.problem));
}

}  // namespace quode::app
