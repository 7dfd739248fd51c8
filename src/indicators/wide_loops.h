// Two builds of a hot loop, the wider one chosen at start-up by what the processor can do. Both give the same
// bits: a lane of a vector does what the plain loop does, and nothing is contracted.
#pragma once

// The sanitizers' start-up code and the choice at start-up do not go together.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) && \
    !defined(__SANITIZE_THREAD__)
#define BRANTLOW_WIDE_LOOPS __attribute__((target_clones("avx2", "default")))
#else
#define BRANTLOW_WIDE_LOOPS
#endif
