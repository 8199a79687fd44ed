/* SPDX-FileCopyrightText: the Quode authors
 * SPDX-License-Identifier: MIT
 *
 * Quode as a library: places, prayer times, qibla and Hijri dates, offline. This is the one header to include.
 * In C it gives the functions and records of <quode/quode_c.h>, in C++20 also the types of <quode/quode_cpp.h>.
 * The manual, with examples, is docs/library.md.
 */
#ifndef QUODE_QUODE_H
#define QUODE_QUODE_H

#include <quode/quode_c.h>

#ifdef __cplusplus
#include <quode/quode_cpp.h>
#endif

#endif
