// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Parts of Quode that take longer to load than most commands take to run stand in modules, in the folder lib/quode.
#pragma once

#include <string>

namespace quode {

/// A symbol of a module, or why there is none.
struct ModuleSymbol {
    const void* address = nullptr;
    std::string problem;  ///< as the dynamic linker words it
};

/// Loads a module, which stays loaded, and looks up a symbol of it. The folder is lib/quode beside the folder of the program, or
/// that of the library which holds this code.
/// @param module  the name of the file, such as "quode-ical.so"
ModuleSymbol loadModule(const char* module, const char* symbol);

}  // namespace quode
