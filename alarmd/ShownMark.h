// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "companion/RingRecords.h"

namespace quode {

/// The last ring that was shown, noted the moment that it is: the note in the database takes some milliseconds more, in
/// which a process that is killed would leave behind a ring that seems not to have been shown. The mark survives the
/// process, not a failure of the power; without it all goes on.
class ShownMark {
  public:
    /// Uses the file "alarmd.shown" of the folder.
    explicit ShownMark(const std::filesystem::path& dataFolder);
    ~ShownMark();
    ShownMark(const ShownMark&) = delete;
    ShownMark& operator=(const ShownMark&) = delete;

    /// Notes a ring as shown, with the number of its notification.
    void set(const RingRecord& record);

    /// The number under which this ring was shown; nothing when another one was the last.
    std::optional<std::uint32_t> find(const RingRecord& record) const;

  private:
    int descriptor_;
};

}  // namespace quode
