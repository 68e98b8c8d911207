// Compiling a plain loop for several instruction sets.
#pragma once

/// On a function: the compiler makes one version for every processor and one for those with 256-bit vectors;
/// the one to use is chosen when the program is loaded. Rounding is the same in both. Where the loader cannot
/// choose, there is the first only.
#if defined(__x86_64__) && defined(__ELF__) && defined(__GNUC__) && !defined(__clang__)
#define KIVO_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define KIVO_VECTOR_CLONES
#endif
