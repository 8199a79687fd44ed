// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// conventions_page: writes docs/conventions.md and conventions/agreement.cpp, or the files named.
#include <fstream>

#include "conventions_page.h"

int main(int count, char** words) {
    const std::string page = count > 1 ? words[1] : QUODE_CONVENTIONS_PAGE;
    const std::string source = count > 2 ? words[2] : QUODE_AGREEMENT_SOURCE;
    std::ofstream(page) << quode::conventions::conventionsPage();
    std::ofstream(source) << quode::conventions::agreementSource();
    return 0;
}
