// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quode::app {

class Session;

/// A sound that the user named, as it is kept: a name of the bundle or of the desktop's sound theme, or the whole path
/// of a file. Throws `Failure` (notFound) when there is no such sound, for the alarm would be silent.
std::string soundNamedByUser(Session& session, const std::string& request);

/// Whether a sound that is kept is still there.
bool soundExists(Session& session, const std::string& name);

/// "chime, dawn, ..., the sounds of the sound theme, or a file".
std::string soundsToChoose(Session& session);

}  // namespace quode::app
