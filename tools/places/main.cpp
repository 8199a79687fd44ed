// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode-build-cities DATA_FOLDER DATABASE: makes the city database from the place data.
#include <cstdio>
#include <exception>

#include "tools/places/city_database.h"
#include "tools/places/source_data.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: quode-build-cities DATA_FOLDER DATABASE\n", stderr);
        return 2;
    }
    try {
        const std::filesystem::path file = argv[2];
        if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path());
        quode::places::writeCityDatabase(quode::places::readSourceData(argv[1]), file);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quode-build-cities: %s\n", error.what());
        return 1;
    }
}
