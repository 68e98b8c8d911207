// Loaded into a program with SDL 2 before everything else: it is told of three steps of the wheel where there
// was one, in one event.
#include <dlfcn.h>
#include <SDL.h>

extern "C" __attribute__((visibility("default"))) int SDL_PollEvent(SDL_Event* event) {
    using Function = decltype(&SDL_PollEvent);
    static const auto original = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "SDL_PollEvent"));
    const int result = original(event);
    if (result == 1 && event->type == SDL_MOUSEWHEEL) {
        event->wheel.y *= 3;
        event->wheel.preciseY *= 3;
    }
    return result;
}
