// Which connections to X displays are open, so that the windows of a thread share them.
#pragma once

#include <memory>
#include <string>

namespace KivoDrawingTools {

class XConnection;

/// The register of the process, which keeps no connection open. Each thread has connections of its own: with
/// the connection windows share an EGL display and the driver's state behind it, and llvmpipe reads there
/// what another thread's context changes.
/// @param display  its name; that of one of its screens will do
namespace OpenXConnections {

/// The calling thread's; null where none is open.
std::shared_ptr<XConnection> Find(const std::string& display);
/// Registers a connection for the calling thread, in place of another one that is not usable any more.
void Add(const std::string& display, const std::shared_ptr<XConnection>& connection);
/// Forgets connections that have closed, of whichever threads.
void ForgetClosed();

} // namespace OpenXConnections

} // namespace KivoDrawingTools
