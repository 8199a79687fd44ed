// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// conventions_page: writes docs/conventions.md and conventions/agreement.cpp, or the files named.
#include <fstream>

#include "conventions_page.h"
#include "support/fixtures.h"

int main(int count, char** words) {
    const std::string page = count > 1 ? words[1] : quode::test::sourceFile("docs/conventions.md");
    const std::string source = count > 2 ? words[2] : quode::test::sourceFile("conventions/agreement.cpp");
    std::ofstream(page) << quode::conventions::conventionsPage();
    std::ofstream(source) << quode::conventions::agreementSource();
    return 0;
}
