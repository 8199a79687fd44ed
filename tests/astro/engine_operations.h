// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Random operations on an engine.
#pragma once

#include "astro/FastAstro.h"
#include "digest.h"
#include "random_sky.h"

namespace quode::test {

/// Sets date and place of an engine.
void set(FastAstro& engine, const RandomPlace& place, const VAKDate& day);

/// Sets any date and place.
void setAnywhere(FastAstro& engine, RandomNumbers& random);

/// Runs one operation, chosen at random among those that set or read fields, and adds its result.
void operate(FastAstro& engine, RandomNumbers& random, Digest& digest);

}  // namespace quode::test
