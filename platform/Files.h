// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quode {

/// The device's files. An operation that fails throws std::system_error (std::filesystem::filesystem_error is one),
/// whose text names the path and the reason.
class Files {
  public:
    virtual ~Files() = default;

    /// True when a file or a folder stands at the path.
    virtual bool exists(const std::filesystem::path& path) const = 0;

    /// True when the file, or an entry of the folder, can be written by this process.
    virtual bool writable(const std::filesystem::path& path) const = 0;

    /// True when the file is there and this process may delete it.
    virtual bool deletable(const std::filesystem::path& path) const = 0;

    /// The whole content of a file.
    virtual std::string read(const std::filesystem::path& path) const = 0;

    /// Adds text at the end of a file, which is created when missing.
    virtual void append(const std::filesystem::path& path, std::string_view text) = 0;

    /// Replaces the content of a file, or creates it, in one step: a reader, or a machine that loses its power
    /// meanwhile, finds the old content or the new one, never a part.
    virtual void write(const std::filesystem::path& path, std::string_view content) = 0;

    /// Deletes a file.
    virtual void remove(const std::filesystem::path& path) = 0;

    /// Makes a folder with all the folders above it; nothing happens when it is there.
    virtual void createFolders(const std::filesystem::path& path) = 0;
};

}  // namespace quode
