#pragma once

#include <cstdio>
#include <cstdlib>

/// What must hold for every input; anything else is a finding.
inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}
