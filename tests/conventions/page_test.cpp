// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>

#include "conventions/Convention.h"
#include "conventions/agreement.h"
#include "conventions_page.h"
#include "support/fixtures.h"

namespace quode::conventions {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(ConventionsPage, isUpToDate) {
    EXPECT_EQ(contentOf(test::sourceFile("docs/conventions.md")), conventionsPage())
        << "Run the program conventions_page of the build";
    EXPECT_EQ(contentOf(test::sourceFile("conventions/agreement.cpp")), agreementSource())
        << "Run the program conventions_page of the build";
}

TEST(ConventionsPage, claimsNoAgreementWithoutRows) {
    for (const Convention& convention : allConventions()) {
        const bool isChecked = publishedAgreement(convention.key) != nullptr;
        EXPECT_EQ(isChecked, !convention.sampleAuthority.empty()) << convention.key;
    }
}

}  // namespace
}  // namespace quode::conventions
