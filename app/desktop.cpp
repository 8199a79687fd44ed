// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/desktop.h"

#include <dlfcn.h>

#include "app/failure.h"
#include "platform/folders.h"
#include "texts/translation.h"

namespace quode::app {

// The module stays loaded as long as the process lives.
const Desktop& desktop() {
    const std::filesystem::path module = executablePath().parent_path().parent_path() / "lib/quode/quode-desktop.so";
    void* const library = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
    const void* const operations = library ? dlsym(library, desktopSymbol) : nullptr;
    if (operations) return *static_cast<const Desktop*>(operations);
    throw Failure(ExitCode::damagedData,
                  _("The desktop part of Quode cannot be loaded: {}. Install Quode again.", dlerror()));
}

}  // namespace quode::app
