// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <astro/FastAstro.h>
#include <astro/MagneticVariation.h>

#include <cstdio>

int main() {
    quode::FastAstro engine;
    engine.SetCurrentDate(21, 11, 2026);
    engine.SetPlace(41.0, 29.0, 3.0, 0, 0, 0, 0, 0, 0, 1);
    std::printf("%.2f\n", engine.CalculatePrayTimes().KibleAngle.K);
}
