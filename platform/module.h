// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Modules in the folder lib/quode: parts of Quode that take longer to load than most commands take to run.
#pragma once

#include <string>

namespace quode {

/// A symbol of a module, or why it is missing.
struct ModuleSymbol {
    const void* address = nullptr;
    std::string problem;  ///< the message of the dynamic linker
};

/// Loads a module, which stays loaded, and finds a symbol in it. Its folder is lib/quode beside the folder of the program, or
/// beside that of the library with this code.
/// @param module  the name of the file, such as "quode-ical.so"
ModuleSymbol loadModule(const char* module, const char* symbol);

}  // namespace quode
