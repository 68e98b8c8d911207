// What the tests with X11 windows share: replies of the server, and areas of the screen, names of keys and
// buttons.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace KivoTest {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// A reply of the X server.
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;

/// A rectangle of the screen, in pixels.
struct ScreenArea {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

enum PointerButton { leftButton = 1, middleButton = 2, rightButton = 3, wheelUp = 4, wheelDown = 5 };

// Keysyms of Latin characters are their codes.
constexpr xcb_keysym_t tabKey = 0xFF09;
constexpr xcb_keysym_t returnKey = 0xFF0D;
constexpr xcb_keysym_t escapeKey = 0xFF1B;
constexpr xcb_keysym_t homeKey = 0xFF50;
constexpr xcb_keysym_t upKey = 0xFF52;
constexpr xcb_keysym_t rightKey = 0xFF53;
constexpr xcb_keysym_t downKey = 0xFF54;
constexpr xcb_keysym_t f1Key = 0xFFBE;
constexpr xcb_keysym_t f2Key = 0xFFBF;
constexpr xcb_keysym_t f9Key = 0xFFC6;
constexpr xcb_keysym_t f10Key = 0xFFC7;
constexpr xcb_keysym_t shiftKey = 0xFFE1;
constexpr xcb_keysym_t controlKey = 0xFFE3;
constexpr xcb_keysym_t altKey = 0xFFE9;

} // namespace KivoTest
