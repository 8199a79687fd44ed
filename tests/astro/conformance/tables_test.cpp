// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The number tables of the engine, compared with their source files and the published rows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "astro/SeriesTables.h"

namespace quode::tables {
namespace {

using Row = std::vector<double>;

/// The rows of astro/tables/NAME.csv; texts count as 0. With a group, only rows with that text in the first column.
std::vector<Row> rowsOf(const std::string& name, const std::string& group = {}) {
    std::ifstream stream(std::string(QUODE_TABLES) + "/" + name + ".csv");
    std::string line;
    std::getline(stream, line);
    std::vector<Row> rows;
    while (std::getline(stream, line)) {
        if (!group.empty() && line.substr(0, line.find(',')) != group) continue;
        Row row;
        for (std::size_t begin = 0; begin <= line.size();) {
            const std::size_t end = std::min(line.find(',', begin), line.size());
            row.push_back(std::strtod(line.substr(begin, end - begin).c_str(), nullptr));
            begin = end + 1;
        }
        rows.push_back(row);
    }
    return rows;
}

TEST(EarthTables, HoldEveryRowOfTheirFile) {
    const std::vector<std::pair<std::string, std::span<const EarthTerm>>> all = {
        {"L0", L0}, {"L1", L1}, {"L2", L2}, {"L3", L3}, {"L4", L4}, {"L5", L5}, {"B0", B0},
        {"B1", B1}, {"R0", R0}, {"R1", R1}, {"R2", R2}, {"R3", R3}, {"R4", R4}};
    for (const auto& [name, table] : all) {
        const auto rows = rowsOf("vsop87_earth", name);
        ASSERT_EQ(rows.size(), table.size()) << name;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ((Row{rows[i][2], rows[i][3], rows[i][4]}), (Row{table[i].A, table[i].B, table[i].C}))
                << name << i;
        }
    }
}

TEST(EarthTables, HaveThePublishedSizesAndFirstRows) {
    EXPECT_EQ((std::vector<std::size_t>{64, 34, 20, 7, 3, 1, 5, 2, 40, 10, 6, 2, 1}),
              (std::vector<std::size_t>{std::size(L0), std::size(L1), std::size(L2), std::size(L3), std::size(L4),
                                        std::size(L5), std::size(B0), std::size(B1), std::size(R0), std::size(R1),
                                        std::size(R2), std::size(R3), std::size(R4)}));
    const auto expectRow = [](Row expected, const EarthTerm& term) {
        EXPECT_NEAR(expected[0], term.A, 1e-6);
        EXPECT_NEAR(expected[1], term.B, 1e-9);
        EXPECT_NEAR(expected[2], term.C, 1e-9);
    };
    expectRow({175347040.0, 0, 0}, L0[0]);
    expectRow({3341656.5, 4.6692566872, 6283.0756835938}, L0[1]);
    expectRow({34894.2734375, 4.6261024475, 12566.1513671875}, L0[2]);
    expectRow({628331970560.0, 0, 0}, L1[0]);
    expectRow({206058.859375, 2.6782345772, 6283.0756835938}, L1[1]);
    expectRow({52918.87109375, 0, 0}, L2[0]);
    expectRow({8719.8369140625, 1.0720967054, 6283.0756835938}, L2[1]);
    expectRow({289.2260131836, 5.8438420296, 6283.0756835938}, L3[0]);
    expectRow({34.9550018311, 0, 0}, L3[1]);
    expectRow({114.0839996338, 3.141592741, 0}, L4[0]);
    expectRow({7.7170000076, 4.1344656944, 6283.0756835938}, L4[1]);
    expectRow({0.7649999857, 3.8380377293, 12566.1513671875}, L4[2]);
    expectRow({0.878000021, 3.141592741, 0}, L5[0]);
    expectRow({279.6199951172, 3.1987016201, 84334.6640625}, B0[0]);
    expectRow({101.6429977417, 5.4224863052, 5507.5532226562}, B0[1]);
    expectRow({9.029999733, 3.8972907066, 5507.5532226562}, B1[0]);
    expectRow({6.1770000458, 1.7303885221, 5223.6938476562}, B1[1]);
    expectRow({100013992.0, 0, 0}, R0[0]);
    expectRow({1670699.625, 3.0984635353, 6283.0756835938}, R0[1]);
    expectRow({103018.609375, 1.1074897051, 6283.0756835938}, R1[0]);
    expectRow({4359.384765625, 5.7845511436, 6283.0756835938}, R2[0]);
    expectRow({144.5950012207, 4.273194313, 6283.0756835938}, R3[0]);
    expectRow({6.7290000916, 3.916975975, 12566.1513671875}, R3[1]);
    expectRow({3.8580000401, 2.5638439655, 6283.0756835938}, R4[0]);
}

TEST(MoonTables, HoldEveryRowOfTheirFiles) {
    const auto longitude = rowsOf("moon_longitude_distance");
    ASSERT_EQ(60u, longitude.size());
    ASSERT_EQ(60u, std::size(moon_longitude_distance));
    for (std::size_t i = 0; i < 60; ++i) {
        const auto& t = moon_longitude_distance[i];
        EXPECT_EQ(longitude[i],
                  (Row{double(t.D), double(t.M), double(t.Mp), double(t.F), double(t.sigmaL), double(t.sigmaR)}));
    }
    const auto latitude = rowsOf("moon_latitude");
    ASSERT_EQ(60u, latitude.size());
    ASSERT_EQ(60u, std::size(moon_latitude));
    for (std::size_t i = 0; i < 60; ++i) {
        const auto& t = moon_latitude[i];
        EXPECT_EQ(latitude[i], (Row{double(t.D), double(t.M), double(t.Mp), double(t.F), double(t.sigmaB)}));
    }
    const auto nutation = rowsOf("nutation_iau1980_first31");
    ASSERT_EQ(31u, nutation.size());
    ASSERT_EQ(31u, std::size(nutation_iau1980_first31));
    for (std::size_t i = 0; i < 31; ++i) {
        const auto& t = nutation_iau1980_first31[i];
        EXPECT_EQ(nutation[i], (Row{double(t.D), double(t.M), double(t.Mp), double(t.F), double(t.Omega), double(t.psi),
                                    double(t.psiT), double(t.eps), double(t.epsT)}));
    }
}

TEST(MoonTables, HaveThePublishedFirstAndLastRows) {
    const auto lr = [](std::size_t i) {
        const auto& t = moon_longitude_distance[i];
        return std::vector<int>{t.D, t.M, t.Mp, t.F, t.sigmaL, t.sigmaR};
    };
    EXPECT_EQ((std::vector<int>{0, 0, 1, 0, 6288774, -20905355}), lr(0));
    EXPECT_EQ((std::vector<int>{2, 0, -1, 0, 1274027, -3699111}), lr(1));
    EXPECT_EQ((std::vector<int>{2, 0, 0, 0, 658314, -2955968}), lr(2));
    EXPECT_EQ((std::vector<int>{2, 0, -1, -2, 0, 8752}), lr(59));
    const auto b = [](std::size_t i) {
        const auto& t = moon_latitude[i];
        return std::vector<int>{t.D, t.M, t.Mp, t.F, t.sigmaB};
    };
    EXPECT_EQ((std::vector<int>{0, 0, 0, 1, 5128122}), b(0));
    EXPECT_EQ((std::vector<int>{0, 0, 1, 1, 280602}), b(1));
    EXPECT_EQ((std::vector<int>{0, 0, 1, -1, 277693}), b(2));
    EXPECT_EQ((std::vector<int>{2, -2, 0, 1, 107}), b(59));
    const auto n = [](std::size_t i) {
        const auto& t = nutation_iau1980_first31[i];
        return std::vector<int>{t.D, t.M, t.Mp, t.F, t.Omega, t.psi, t.psiT, t.eps, t.epsT};
    };
    EXPECT_EQ((std::vector<int>{0, 0, 0, 0, 1, -171996, -1742, 92025, 89}), n(0));
    EXPECT_EQ((std::vector<int>{-2, 0, 0, 2, 2, -13187, -16, 5736, -31}), n(1));
    EXPECT_EQ((std::vector<int>{0, 0, 0, 2, 2, -2274, -2, 977, -5}), n(2));
    EXPECT_EQ((std::vector<int>{0, 1, 0, 0, 1, -15, 0, 9, 0}), n(30));
}

TEST(PhaseTables, HoldEveryRowOfTheirFiles) {
    const std::vector<std::pair<std::string, std::span<const PhaseTerm>>> all = {
        {"new", phase_new},
        {"full", phase_full},
        {"quarter", phase_quarter},
        {"quarter_W_cosine", phase_quarter_W_cosine}};
    for (const auto& [name, table] : all) {
        const auto rows = rowsOf("moon_phase_terms", name);
        ASSERT_EQ(rows.size(), table.size()) << name;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const PhaseTerm& t = table[i];
            EXPECT_EQ((Row{rows[i].begin() + 1, rows[i].end()}),
                      (Row{double(t.M), double(t.Mp), double(t.F), double(t.Omega), double(t.ePower), t.coefficient}));
        }
    }
    const auto planetary = rowsOf("moon_phase_planetary");
    ASSERT_EQ(14u, std::size(moon_phase_planetary));
    for (std::size_t i = 0; i < 14; ++i) {
        const auto& t = moon_phase_planetary[i];
        EXPECT_EQ((Row{planetary[i].begin() + 1, planetary[i].end()}), (Row{t.degrees, t.degreesPerK, t.coefficient}));
    }
    EXPECT_EQ(-0.40720000863075256, phase_new[0].coefficient);
    EXPECT_EQ(299.7699890136719, moon_phase_planetary[0].degrees);
    EXPECT_EQ(3.5925180912017822, moon_phase_planetary[13].degreesPerK);
}

TEST(FieldTable, HoldsEveryRowOfItsFile) {
    const auto rows = rowsOf("geomagnetic_field");
    ASSERT_EQ(195u, rows.size());
    ASSERT_EQ(195u, std::size(geomagnetic_field));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Row row(rows[i].begin() + 3, rows[i].end());
        row.resize(4);
        const auto& c = geomagnetic_field[i];
        EXPECT_EQ(row, (Row{c.main2005, c.change2005, c.main2010, c.change2010})) << i;
    }
}

TEST(FieldTable, HasThePublishedFirstValues) {
    const std::vector<double> main = {-29496.5, -1585.9000244140625, 4945.10009765625, -2396.60009765625,
                                      3026.0,   -2707.699951171875};
    const std::vector<double> change = {11.399999618530273,  16.700000762939453,  -28.799999237060547,
                                        -11.300000190734863, -3.9000000953674316, -23.0};
    for (std::size_t i = 0; i < main.size(); ++i) {
        EXPECT_EQ(main[i], geomagnetic_field[i].main2010);
        EXPECT_EQ(change[i], geomagnetic_field[i].change2010);
    }
    EXPECT_EQ(-29556.80078125, geomagnetic_field[0].main2005);
    EXPECT_EQ(-1671.800048828125, geomagnetic_field[1].main2005);
    EXPECT_EQ(5080.0, geomagnetic_field[2].main2005);
}

TEST(TemkinTable, HoldsEveryRowOfItsFile) {
    const auto rows = rowsOf("temkin_minutes");
    ASSERT_EQ(61u, rows.size());
    ASSERT_EQ(61u, std::size(temkin_minutes));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i][1], temkin_minutes[i].minutes500m);
        EXPECT_EQ(rows[i][2], temkin_minutes[i].minutes250m);
    }
}

TEST(TemkinTable, HasThePublishedEndsAndRisesSteadily) {
    const std::vector<double> first500 = {7.5333333015441895, 7.5333333015441895, 7.5333333015441895,
                                          7.550000190734863,  7.566666603088379,  7.566666603088379,
                                          7.583333492279053,  7.599999904632568};
    const std::vector<double> first250 = {6.416666507720947, 6.416666507720947, 6.416666507720947, 6.416666507720947,
                                          6.416666507720947, 6.433333396911621, 6.433333396911621, 6.449999809265137};
    for (std::size_t i = 0; i < first500.size(); ++i) {
        EXPECT_EQ(first500[i], temkin_minutes[i].minutes500m);
        EXPECT_EQ(first250[i], temkin_minutes[i].minutes250m);
    }
    EXPECT_EQ(20.5, temkin_minutes[58].minutes500m);
    EXPECT_EQ(22.16666603088379, temkin_minutes[59].minutes500m);
    EXPECT_EQ(24.33333396911621, temkin_minutes[60].minutes500m);
    EXPECT_EQ(18.46666717529297, temkin_minutes[59].minutes250m);
    EXPECT_EQ(20.33333396911621, temkin_minutes[60].minutes250m);
    for (std::size_t i = 0; i < 60; ++i) {
        EXPECT_LE(temkin_minutes[i].minutes500m, temkin_minutes[i + 1].minutes500m);
        EXPECT_LE(temkin_minutes[i].minutes250m, temkin_minutes[i + 1].minutes250m);
    }
}

}  // namespace
}  // namespace quode::tables
