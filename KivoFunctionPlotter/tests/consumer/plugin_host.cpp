// Loads a plugin, has it draw and unloads it, twenty times:
//   plugin_host <plugin> main|worker|both   the threads that draw; both: in turn, the main thread first
#include <dlfcn.h>

#include <cstdio>
#include <string>
#include <thread>

namespace {

bool DrawOnce(const char* path, bool inWorker) {
    void* const plugin = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    const auto draw = reinterpret_cast<bool (*)()>(plugin ? dlsym(plugin, "DrawPicture") : nullptr);
    if (!draw) {
        std::fprintf(stderr, "%s\n", dlerror());
        return false;
    }
    bool isDrawn = false;
    if (inWorker)
        std::thread([&] { isDrawn = draw(); }).join();
    else
        isDrawn = draw();
    return dlclose(plugin) == 0 && isDrawn;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string threads = argv[2];
    for (int i = 0; i < 20; ++i) {
        const bool inWorker = threads == "worker" || (threads == "both" && i % 2 == 1);
        if (DrawOnce(argv[1], inWorker)) continue;
        std::fprintf(stderr, "no picture when loaded for the %d. time\n", i + 1);
        return 1;
    }
    return 0;
}
