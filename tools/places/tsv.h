// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quode::places {

/// The rows of a tab-separated UTF-8 file, plain or packed by gzip, without its header line.
/// columns   how many columns each row must have
/// Errors:   std::runtime_error naming file and line when the file cannot be read or a row has another number of
/// columns
std::vector<std::vector<std::string>> readTable(const std::filesystem::path& file, std::size_t columns);

}  // namespace quode::places
