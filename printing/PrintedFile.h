// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quode::printing {

/// A file, or why it could not be made.
struct PrintedFile {
    std::string bytes;
    std::string problem;
};

}  // namespace quode::printing
