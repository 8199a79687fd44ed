// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode_compass_images FOLDER: draws the pictures of the compass into an existing folder.
#include <QString>
#include <array>
#include <cstdio>

#include "tools/compass_images/art.h"

namespace {

struct Variant {
    const char* suffix;
    double scale;  // pixels per point of a phone
};

// The plain files are the ones that the compass shows on every screen, large and dense ones too: they have the finest
// resolution that is asked for, a tablet's with two pixels per point.
constexpr double finest = 4.0;
constexpr std::array<Variant, 4> variants{
    {{".png", finest}, {"@2x.png", 2.0}, {"iPad.png", 2.0}, {"iPad@2x.png", 4.0}}};

bool save(const QImage& image, const QString& path) {
    if (image.save(path, "PNG")) return true;
    std::fprintf(stderr, "Cannot write %s. Is the folder there, and may you write to it?\n", qPrintable(path));
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: quode_compass_images FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    for (const auto& [suffix, scale] : variants) {
        if (!save(quode::drawDial(scale), folder + "/compass" + suffix)) return 1;
        if (!save(quode::drawArrow(scale), folder + "/compassArrow" + suffix)) return 1;
    }
    return 0;
}
