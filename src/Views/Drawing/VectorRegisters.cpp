#include "VectorRegisters.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#endif

namespace quenara {

#if defined(__x86_64__) && defined(__GNUC__)

namespace {

__attribute__((target("avx"))) void releaseUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void releaseVectorRegisters()
{
    static const bool hasUpperHalves = __builtin_cpu_supports("avx");
    if (hasUpperHalves)
        releaseUpperHalves();
}

#else

void releaseVectorRegisters() {}

#endif

} // namespace quenara
