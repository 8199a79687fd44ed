// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quode::printing {

/// A page as pixels.
struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;  ///< 0xRRGGBB below a byte without meaning, line by line from the top left
};

/// A picture, or why it could not be made.
struct DrawnPage {
    Picture picture;
    std::string problem;
};

}  // namespace quode::printing
