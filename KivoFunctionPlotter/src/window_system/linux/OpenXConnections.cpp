#include "OpenXConnections.h"

#include "XConnection.h"

#include <iterator>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace KivoDrawingTools {

namespace {

/// ":0.1" is a screen of the display ":0".
std::string WithoutScreen(const std::string& display) {
    constexpr const char* digits = "0123456789";
    const auto dot = display.find_last_not_of(digits);
    if (dot == std::string::npos || dot == 0 || display[dot] != '.') return display;
    const auto colon = display.find_last_not_of(digits, dot - 1);
    return colon != std::string::npos && display[colon] == ':' ? display.substr(0, dot) : display;
}

using Key = std::pair<std::string, std::thread::id>; // a display and the thread that uses it

Key KeyOf(const std::string& display) {
    return {WithoutScreen(display), std::this_thread::get_id()};
}

struct Register {
    std::mutex mutex;
    std::map<Key, std::weak_ptr<XConnection>> connections;
};

/// Never destroyed: a host's static objects may release their windows late.
Register& TheRegister() {
    static auto* const instance = new Register;
    return *instance;
}

} // namespace

std::shared_ptr<XConnection> OpenXConnections::Find(const std::string& display) {
    Register& open = TheRegister();
    const std::lock_guard<std::mutex> guard(open.mutex);
    const auto found = open.connections.find(KeyOf(display));
    return found == open.connections.end() ? nullptr : found->second.lock();
}

void OpenXConnections::Add(const std::string& display, const std::shared_ptr<XConnection>& connection) {
    Register& open = TheRegister();
    const std::lock_guard<std::mutex> guard(open.mutex);
    open.connections[KeyOf(display)] = connection;
}

void OpenXConnections::ForgetClosed() {
    Register& open = TheRegister();
    const std::lock_guard<std::mutex> guard(open.mutex);
    for (auto at = open.connections.begin(); at != open.connections.end();)
        at = at->second.expired() ? open.connections.erase(at) : std::next(at);
}

} // namespace KivoDrawingTools
