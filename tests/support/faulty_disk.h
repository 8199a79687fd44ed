// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

namespace quode::test {

/// Makes the disk of SQLite fail at a chosen step while the object exists. A step is a write, a flush, a change of length
/// or the deletion of a file.
class FaultyDisk {
  public:
    enum class Fault {
        none,  ///< nothing fails; flushes are skipped, for tests with many writes
        full,  ///< from this step on, everything that needs space fails
        kill,  ///< the process dies at this step, without cleaning up
    };
    /// @param step  the first that fails, counted from 1; 0: none, steps are only counted
    explicit FaultyDisk(Fault fault, int step = 0);
    ~FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;

    /// The number of requested steps.
    int steps() const;
};

}  // namespace quode::test
