// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::test {

/// Makes the disk of SQLite fail at a chosen step, for as long as the object lives. A step is a write, a flush, a
/// change of length or the deletion of a file.
class FaultyDisk {
  public:
    enum class Fault {
        none,  ///< nothing fails; only the flushes are left out, for tests that write a lot
        full,  ///< from this step on, everything that needs room fails
        kill,  ///< the process dies at this step, without any clearing up
    };
    /// step    the first that fails, counted from 1; 0: none, they are only counted
    explicit FaultyDisk(Fault fault, int step = 0);
    ~FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;

    /// How many steps were asked for.
    int steps() const;
};

}  // namespace quode::test
