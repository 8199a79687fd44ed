// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Cosines in single precision, four at a time.
#pragma once

#include <cstddef>

namespace quode {

/// The cosf of the GNU C library (2.28 and later) on a processor with fused multiply-add, bit for bit:
/// tests/astro/float_cosine_test compares every argument up to `largestArgument`. Use it only where `isVectorised`;
/// elsewhere the library's results differ, and the caller takes the library.
class FloatCosine {
  public:
    static constexpr double largestArgument = 0x1p21;

    /// True when this processor and C library give the same cosines as `products`.
    static bool isVectorised();

    /// Computes out[i] = A[i] * cosf(float(B[i] + C[i] * t)). Only where `isVectorised`.
    /// @param count  a multiple of 4
    static void products(const double* A, const double* B, const double* C, double t, double* out, std::size_t count);
};

}  // namespace quode
