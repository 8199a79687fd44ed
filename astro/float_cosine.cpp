// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "astro/float_cosine.h"

#if defined(__x86_64__) && defined(__GLIBC__)
#include <immintrin.h>

#include <cmath>

namespace quode {
namespace {

// The polynomials and the two argument reductions are those of the library's sinf and cosf.
[[gnu::target("avx2,fma")]] inline __m256d all(double x) {
    return _mm256_set1_pd(x);
}

/// The argument less the nearest multiple of a quarter turn. The library reduces small arguments in one step, larger
/// ones as if with all digits of pi.
[[gnu::target("avx2,fma")]] inline __m256d remainderOf(__m256d x, __m256d quarters) {
    const __m256d small = _mm256_fnmadd_pd(quarters, all(0x1.921FB54442D18p0), x);
    const __m256d large =
        _mm256_fnmadd_pd(quarters, all(0x1.68c234c4c6629p-39), _mm256_fnmadd_pd(quarters, all(0x1.921fb5444p0), x));
    const __m256d magnitude = _mm256_andnot_pd(all(-0.0), x);
    return _mm256_blendv_pd(large, small, _mm256_cmp_pd(magnitude, all(120.0), _CMP_LT_OQ));
}

[[gnu::target("avx2,fma")]] inline __m256d sinePolynomial(__m256d r) {
    const __m256d r2 = _mm256_mul_pd(r, r), r3 = _mm256_mul_pd(r, r2);
    return _mm256_fmadd_pd(_mm256_mul_pd(r3, r2),
                           _mm256_fmadd_pd(r2, all(-0x1.994eb3774cf24p-13), all(0x1.1107605230bc4p-7)),
                           _mm256_fmadd_pd(r3, all(-0x1.555545995a603p-3), r));
}

[[gnu::target("avx2,fma")]] inline __m256d cosinePolynomial(__m256d r) {
    const __m256d r2 = _mm256_mul_pd(r, r), r4 = _mm256_mul_pd(r2, r2);
    return _mm256_fmadd_pd(
        _mm256_mul_pd(r4, r2), _mm256_fmadd_pd(r2, all(0x1.99343027bf8c3p-16), all(-0x1.6c087e89a359dp-10)),
        _mm256_fmadd_pd(r4, all(0x1.55553e1068f19p-5), _mm256_fmadd_pd(r2, all(-0x1.ffffffd0c621cp-2), all(1.0))));
}

/// Cosines before the last rounding to single precision.
[[gnu::target("avx2,fma")]] inline __m256d cosines(__m256d x) {
    const __m256d rounder = all(0x1.8p52);  // adding it rounds to whole numbers
    const __m256d shifted = _mm256_fmadd_pd(x, all(0x1.45F306DC9C883p-1), rounder);
    const __m256d r = remainderOf(x, _mm256_sub_pd(shifted, rounder));
    const __m256i q = _mm256_castpd_si256(shifted);
    const __m256d isOdd = _mm256_castsi256_pd(_mm256_slli_epi64(q, 63));
    const __m256i nextQuarter = _mm256_add_epi64(q, _mm256_set1_epi64x(1));
    const __m256d sign = _mm256_and_pd(_mm256_castsi256_pd(_mm256_slli_epi64(nextQuarter, 62)), all(-0.0));
    return _mm256_xor_pd(_mm256_blendv_pd(cosinePolynomial(r), sinePolynomial(r), isOdd), sign);
}

[[gnu::target("avx2,fma")]] void productsOfVectors(const double* A, const double* B, const double* C, double t,
                                                   double* out, std::size_t count) {
    const __m256d time = all(t);
    for (std::size_t i = 0; i < count; i += 4) {
        const __m256d argument = _mm256_add_pd(_mm256_loadu_pd(B + i), _mm256_mul_pd(_mm256_loadu_pd(C + i), time));
        const __m256d cosine = cosines(_mm256_cvtps_pd(_mm256_cvtpd_ps(argument)));
        _mm256_storeu_pd(out + i, _mm256_mul_pd(_mm256_loadu_pd(A + i), _mm256_cvtps_pd(_mm256_cvtpd_ps(cosine))));
    }
}

}  // namespace

bool FloatCosine::isVectorised() {
    // Three cosines whose last bit identifies the library's algorithm: the first distinguishes fused steps from separate
    // ones, the others distinguish this algorithm from correctly rounded ones.
    static const bool vectorised = [] {
        struct Telling {
            float argument, cosine;
        };
        constexpr Telling tellings[] = {
            {0x1.1475b6p+4F, -0x1.69eeep-16F}, {0x1.cbf5dep+2F, 0x1.3cc79cp-1F}, {0x1.1db83ep+19F, 0x1.42525ap-1F}};
        if (!__builtin_cpu_supports("avx2") || !__builtin_cpu_supports("fma")) return false;
        for (const auto& [argument, cosine] : tellings) {
            const volatile float atRunTime = argument;
            if (std::cos(static_cast<float>(atRunTime)) != cosine) return false;
        }
        return true;
    }();
    return vectorised;
}

void FloatCosine::products(const double* A, const double* B, const double* C, double t, double* out,
                           std::size_t count) {
    productsOfVectors(A, B, C, t, out, count);
}

}  // namespace quode

#else

namespace quode {

bool FloatCosine::isVectorised() {
    return false;
}
void FloatCosine::products(const double*, const double*, const double*, double, double*, std::size_t) {}

}  // namespace quode

#endif
