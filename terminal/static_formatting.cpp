// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The formatting library as a part of a program or library, which so contains only what it calls. For `quode`, the shared form
// would load the shared C++ library as well, whose start takes a third of the time of `quode today`.
#define FMT_HEADER_ONLY 1
#include <fmt/format.h>

#include <cstdint>
#include <string>

namespace quode {

/// What the rooms call, so that the compiler emits it.
struct FormattingFunctions {
    std::string (*format)(fmt::string_view, fmt::format_args);
    bool (*isPrintable)(std::uint32_t);
    void (*fail)(const char*);
};

extern const FormattingFunctions formattingFunctions;
const FormattingFunctions formattingFunctions{&fmt::vformat, &fmt::detail::is_printable,
                                              &fmt::detail::throw_format_error};

}  // namespace quode
