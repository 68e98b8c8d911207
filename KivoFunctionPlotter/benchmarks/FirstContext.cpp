// Makes an OpenGL context off-screen and writes a byte to standard output as soon as it is current: what
// every program that draws has to wait for.
#include "support/OffscreenContext.h"

#include <cstdio>

int main() {
    const KivoBenchmark::OffscreenContext context;
    std::putchar('.');
    std::fflush(stdout);
    return 0;
}
