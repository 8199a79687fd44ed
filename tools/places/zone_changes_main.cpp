// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode-build-zone-changes DATA_FOLDER ZONE_FOLDER: prints zone_changes.tsv, made from the zone files of this machine.
#include <cstdio>
#include <exception>

#include "tools/places/zone_changes.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: quode-build-zone-changes DATA_FOLDER ZONE_FOLDER > DATA_FOLDER/zone_changes.tsv\n", stderr);
        return 2;
    }
    try {
        std::fputs(quode::places::zoneChangesTable(argv[1], argv[2]).c_str(), stdout);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quode-build-zone-changes: %s\n", error.what());
        return 1;
    }
}
