// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quode {

/// The device's files.
/// @throw std::system_error  from every operation that fails (std::filesystem::filesystem_error is one), with the path and
///                           the reason in its text
class Files {
  public:
    virtual ~Files() = default;

    /// True when a file or a folder exists at the path.
    virtual bool exists(const std::filesystem::path& path) const = 0;

    /// True when the file, or an entry of the folder, can be written by this process.
    virtual bool writable(const std::filesystem::path& path) const = 0;

    /// True when the file exists and this process may delete it.
    virtual bool deletable(const std::filesystem::path& path) const = 0;

    /// The whole content of a file.
    virtual std::string read(const std::filesystem::path& path) const = 0;

    /// Appends text to a file; creates the file when it is missing.
    virtual void append(const std::filesystem::path& path, std::string_view text) = 0;

    /// Replaces the content of a file, or creates it, in one step: a reader, also after a power cut, finds the old or the
    /// new content, never a part.
    virtual void write(const std::filesystem::path& path, std::string_view content) = 0;

    /// Deletes a file.
    virtual void remove(const std::filesystem::path& path) = 0;

    /// Creates a folder and its parent folders; does nothing when it exists.
    virtual void createFolders(const std::filesystem::path& path) = 0;
};

}  // namespace quode
