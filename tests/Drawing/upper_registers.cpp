// Ends with status 0 on a processor that has vector registers with upper halves and tells whether
// they are in use.

#include <cpuid.h>

int main()
{
    constexpr unsigned stateLeaf = 0xd;
    constexpr unsigned tellsUse = 4;
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    const bool canTell = __builtin_cpu_supports("avx2")
        && __get_cpuid_count(stateLeaf, 1, &a, &b, &c, &d) && (a & tellsUse) != 0;
    return canTell ? 0 : 1;
}
