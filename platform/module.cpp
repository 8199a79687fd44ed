// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/module.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/folders.h"

namespace quode {
namespace {

std::filesystem::path moduleFolder() {
    Dl_info here{};
    const bool isKnown = ::dladdr(reinterpret_cast<const void*>(&loadModule), &here) != 0 && here.dli_fname != nullptr;
    const std::filesystem::path file = isKnown ? here.dli_fname : "";
    if (file.filename().string().starts_with("lib")) return file.parent_path();
    return executablePath().parent_path().parent_path() / "lib/quode";
}

}  // namespace

ModuleSymbol loadModule(const char* module, const char* symbol) {
    void* const library = ::dlopen((moduleFolder() / module).c_str(), RTLD_NOW | RTLD_LOCAL);
    const void* const address = library ? ::dlsym(library, symbol) : nullptr;
    if (address) return {address, {}};
    const char* const problem = ::dlerror();
    return {nullptr, problem ? problem : module};
}

}  // namespace quode
