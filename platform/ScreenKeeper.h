// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Keeps the screen from dimming and locking by itself.
class ScreenKeeper {
  public:
    /// An implementation lets the screen go in its destructor, if need be.
    virtual ~ScreenKeeper() = default;

    /// Keeps the screen awake until letGo; asks again where an earlier request was lost or refused. Where the device
    /// has no such service, nothing happens. Never fails.
    virtual void keepAwake() = 0;

    /// Lets the screen dim and lock again. Does nothing when it was not kept awake. Never fails.
    virtual void letGo() = 0;
};

}  // namespace quode
