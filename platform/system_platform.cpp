// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/system_platform.h"

#include "platform/folders.h"

namespace quode {

Platform systemPlatform(const std::string& localeName) {
    const Environment environment = processEnvironment();
    return {systemClock(), systemLocale(localeName),    desktopDevice(),
            posixFiles(),  dataFolderFrom(environment), zoneFolderFrom(environment)};
}

}  // namespace quode
