// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode-build-zone-days DATA_FOLDER ZONE_FOLDER: prints zone_days.tsv, made from the zone files of this machine.
#include <cstdio>
#include <exception>

#include "tools/places/zone_days.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: quode-build-zone-days DATA_FOLDER ZONE_FOLDER > DATA_FOLDER/zone_days.tsv\n", stderr);
        return 2;
    }
    try {
        std::fputs(quode::places::zoneDaysTable(argv[1], argv[2]).c_str(), stdout);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quode-build-zone-days: %s\n", error.what());
        return 1;
    }
}
