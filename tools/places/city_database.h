// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "tools/places/source_data.h"

namespace quode::places {

/// Writes the city database. The same data gives the same bytes. The file appears only when it is complete.
void writeCityDatabase(const SourceData& data, const std::filesystem::path& file);

}  // namespace quode::places
