// Compiling a plain loop for several instruction sets.
#pragma once

/// On a function: the compiler makes a version for every processor and others for those with vectors of 256
/// and of 512 bits; the one to use is chosen when the program is loaded. Rounding is the same in all. Where
/// compiler or loader cannot do this, there is the first only; so, too, under the thread sanitizer, which is
/// not ready when a program is loaded.
#if defined(__SANITIZE_THREAD__)
#define KIVO_VECTOR_CLONES
#elif defined(__x86_64__) && defined(__ELF__) && defined(__GNUC__) && !defined(__clang__) && __GNUC__ >= 12
#define KIVO_VECTOR_CLONES __attribute__((target_clones("arch=x86-64-v4", "avx2", "default")))
#elif defined(__x86_64__) && defined(__ELF__) && defined(__GNUC__) && !defined(__clang__)
#define KIVO_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define KIVO_VECTOR_CLONES
#endif
