// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// quode_compass_images FOLDER: draws the pictures of the compass into an existing folder.
#include <QString>
#include <cstdio>

#include "tools/compass_images/art.h"

namespace {

// The compass shows the same files on every screen, large and dense ones too: pixels per point of a phone, which are two
// per point of a tablet.
constexpr double finest = 4.0;

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
    if (!save(quode::drawDial(finest), folder + "/compass.png")) return 1;
    if (!save(quode::drawArrow(finest), folder + "/compassArrow.png")) return 1;
    return 0;
}
