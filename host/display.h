// What is known of the display before and after the application was made.
#pragma once

#include "platform/Environment.h"

namespace quode::host {

/// Whether there is a display to open a window on. Throws nothing: a display that does not answer is none.
bool hasDisplay(const Environment& environment);

/// Whether windows may be translucent, for something composes them with what lies behind. To be asked once the
/// application object was made.
bool isComposited();

}  // namespace quode::host
