// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode {

/// Prevents the screen from dimming and locking automatically.
class ScreenKeeper {
  public:
    /// An implementation calls `letGo` in its destructor where necessary.
    virtual ~ScreenKeeper() = default;

    /// Keeps the screen awake until `letGo`; repeats the request when an earlier one was lost or refused. Does nothing on a
    /// device without such a service. Never fails.
    virtual void keepAwake() = 0;

    /// Allows the screen to dim and lock again. Does nothing without an earlier `keepAwake`. Never fails.
    virtual void letGo() = 0;
};

}  // namespace quode
