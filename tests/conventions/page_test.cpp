// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>

#include "conventions/Convention.h"
#include "conventions/agreement.h"
#include "conventions_page.h"

namespace quode::conventions {
namespace {

std::string contentOf(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(ConventionsPage, isUpToDate) {
    EXPECT_EQ(contentOf(QUODE_CONVENTIONS_PAGE), conventionsPage()) << "Run build/release/bin/conventions_page";
    EXPECT_EQ(contentOf(QUODE_AGREEMENT_SOURCE), agreementSource()) << "Run build/release/bin/conventions_page";
}

TEST(ConventionsPage, claimsNoAgreementWithoutRows) {
    for (const Convention& convention : allConventions()) {
        const bool isChecked = agreementLine(convention.key) != "not checked against published rows";
        EXPECT_EQ(isChecked, !convention.sampleAuthority.empty()) << convention.key;
    }
}

}  // namespace
}  // namespace quode::conventions
