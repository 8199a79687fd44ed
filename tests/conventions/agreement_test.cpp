// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The conventions compared with published rows. The limits allow for city centres: the point for which an authority
// computes is often uncertain.
#include <gtest/gtest.h>

#include "published_rows.h"
#include "support/fixtures.h"

namespace quode::conventions {
namespace {

struct Bar {
    const char* key;
    const char* authority;
    double withinOne;  ///< smallest fraction of all times within a minute
    int worst;         ///< largest difference, minutes
    double exact;      ///< smallest fraction of exact minutes
};

std::ostream& operator<<(std::ostream& out, const Bar& bar) {
    return out << bar.authority;
}

std::vector<PublishedRow> rowsOfAuthority(const std::string& authority) {
    auto rows = readPublishedRows(test::fixture("conventions/published_rows.csv"));
    std::erase_if(rows, [&](const auto& row) { return row.authority != authority; });
    return rows;
}

class Published : public testing::TestWithParam<Bar> {};

TEST_P(Published, rowsAreReproduced) {
    const Bar& bar = GetParam();
    const auto rows = rowsOfAuthority(bar.authority);
    ASSERT_GE(rows.size(), 2U);
    const ConventionAgreement agreement = agreementOf(*findConvention(bar.key), rows);
    int times = 0, exact = 0, withinOne = 0;
    for (const Agreement& prayer : agreement.prayers) {
        times += prayer.rows;
        exact += prayer.exact;
        withinOne += prayer.withinOne;
        EXPECT_LE(prayer.worst, bar.worst);
    }
    EXPECT_GE(withinOne, bar.withinOne * times);
    EXPECT_GE(exact, bar.exact * times);
}

INSTANTIATE_TEST_SUITE_P(
    Authorities, Published,
    testing::Values(Bar{"diyanet", "Diyanet", 1.0, 1, 0.90}, Bar{"diyanet", "Islamiska Forbundet", 0.93, 14, 0.8},
                    Bar{"jakim", "JAKIM", 1.0, 1, 0.80}, Bar{"muis", "MUIS", 1.0, 1, 0.75},
                    Bar{"kemenag", "jadwalsholat.org (Kemenag criteria)", 1.0, 1, 0.70},
                    Bar{"umm-al-qura", "Umm al-Qura", 1.0, 1, 0.9}, Bar{"dubai", "UAE Awqaf", 1.0, 1, 0.6},
                    Bar{"kuwait", "Kuwait (timetable application)", 1.0, 1, 0.4},
                    Bar{"qatar", "Qatar Calendar House", 1.0, 1, 0.7}, Bar{"algeria", "Algeria MARW", 1.0, 1, 0.92},
                    Bar{"tunisia", "INM Tunisia", 1.0, 1, 0.75}, Bar{"morocco", "Habous Morocco", 0.9, 2, 0.5},
                    Bar{"bosnia", "IZ BiH (Vaktija)", 0.9, 2, 0.5}, Bar{"sri-lanka", "ACJU", 0.85, 2, 0.4},
                    Bar{"moonsighting", "Moonsighting Committee", 1.0, 1, 0.7},
                    Bar{"london-unified", "London Unified", 0.7, 8, 0.6}));

TEST(PublishedRows, allBelongToAConvention) {
    const auto rows = readPublishedRows(test::fixture("conventions/published_rows.csv"));
    std::size_t known = 0;
    for (const Convention& convention : allConventions()) known += rowsOf(convention, rows).size();
    EXPECT_EQ(known, rows.size());
    EXPECT_EQ(rows.size(), 348U);
}

TEST(PublishedRows, hanafiAsrOfLondonIsWithinAMinute) {
    const Convention& convention = *findConvention("london-unified");
    for (const PublishedRow& row : rowsOfAuthority("London Unified")) {
        ASSERT_TRUE(row.asrHanafi);
        const ConventionDay day = computeDay(convention, requestOf(row));
        EXPECT_NEAR(day.asrHanafi.hours * 60.0, *row.asrHanafi, 1.001) << row.date;
    }
}

}  // namespace
}  // namespace quode::conventions
