// What has been taken from the window system, EGL and OpenGL and not been given back.
#pragma once

#include <map>
#include <string>

namespace KivoTest {

/// Enters a resource. Called by the wrappers.
/// @param kind   "font", "texture" and so on
/// @param owner  what it goes with: the context of a texture; null where it stands alone
void Take(const char* kind, const void* owner, unsigned long long handle);
/// Strikes it out; nothing happens where it is not entered.
void GiveBack(const char* kind, const void* owner, unsigned long long handle);
/// Strikes out everything that goes with an owner.
void GiveBackAllOf(const void* owner);

/// How many resources of each kind are entered now; kinds of which there are none are left out.
std::map<std::string, int> TakenResources();

} // namespace KivoTest
