// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Cosines in single precision, four at a time.
#pragma once

#include <cstddef>

namespace quode {

/// The cosf of the GNU C library (2.28 and later) on a processor with fused multiply-add, bit for bit: every argument
/// up to `largestArgument` is compared in tests/astro/float_cosine_test. It is used only where the library itself works
/// so; everywhere else the caller takes the library.
class FloatCosine {
  public:
    static constexpr double largestArgument = 0x1p21;

    /// Whether this processor and library are such.
    static bool isVectorised();

    /// out[i] = A[i] * cosf(float(B[i] + C[i] * t)). The count is a multiple of 4. Only where `isVectorised`.
    static void products(const double* A, const double* B, const double* C, double t, double* out, std::size_t count);
};

}  // namespace quode
