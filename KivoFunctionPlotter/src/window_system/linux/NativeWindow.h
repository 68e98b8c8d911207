// What stands behind a window handle: one class per kind of window, with what differs between them. All that
// they have in common - formats, contexts, presenting, device contexts - works on this interface.
//
// A new kind of window is a new source file with its class and the function that makes its handles; besides,
// the list of sources and KivoWindow.h name them.
#pragma once

#include "DeviceContext.h"
#include "EglDisplay.h"
#include "Win32Names.h"

#include <memory>
#include <vector>

namespace KivoDrawingTools {

struct NativeWindow {
    explicit NativeWindow(std::shared_ptr<EglDisplay> display);
    virtual ~NativeWindow();
    NativeWindow(const NativeWindow&) = delete;
    NativeWindow& operator=(const NativeWindow&) = delete;

    // What each kind supplies. On failure, bool members return false with the failure recorded.

    /// The size of the client area in pixels.
    virtual bool MeasureClient(SIZE& size) = 0;
    /// The client area's top left corner in screen coordinates.
    virtual bool LocateOnScreen(POINT& origin) = 0;
    /// Never fails: 96 where it is not known.
    virtual int DotsPerInch() = 0;
    /// Brings the drawing surface to the window's size and makes sure that it can be drawn to.
    virtual bool Follow() = 0;
    /// Shows what the current context has drawn into the surface.
    /// @param client  the client area's size
    virtual bool Present(const SIZE& client) = 0;
    /// Whether drawing stays unseen until it is presented.
    virtual bool IsDoubleBuffered() const = 0;
    /// Whether the picture is presented to somebody: a host's own context is then not put back after drawing.
    virtual bool IsOnScreen() const = 0;

    // What they have in common.

    const std::shared_ptr<EglDisplay>& Display() const { return m_display; }
    HDC Dc() { return &m_dc; }
    /// The configurations that fit the window. A format's number is its place here, from 1.
    const std::vector<EGLConfig>& Formats();
    /// Makes the drawing surface; a window gets one format in its life.
    bool SetFormat(int format);
    /// 0 before SetFormat.
    int Format() const { return m_format; }
    EGLConfig Config() const { return m_config; }
    EGLSurface Surface() const { return m_surface; }

    /// By how many pixels of each side one of a frame is averaged.
    int Smoothing() const { return m_smoothing; }
    void SetSmoothing(int factor) { m_smoothing = factor; }

protected:
    virtual std::vector<EGLConfig> FittingConfigs() const = 0;
    /// Makes a surface of the window's size; EGL_NO_SURFACE, with the failure recorded, when it is refused.
    virtual EGLSurface MakeSurface(EGLConfig config) = 0;
    /// Destroys the surface and takes another one instead; EGL_NO_SURFACE for none.
    void ReplaceSurface(EGLSurface surface);
    /// Shows a surface that EGL presents by itself.
    bool SwapSurface();

private:
    std::shared_ptr<EglDisplay> m_display;
    std::vector<EGLConfig> m_formats;
    int m_format = 0;
    EGLConfig m_config = nullptr;
    EGLSurface m_surface = EGL_NO_SURFACE;
    int m_smoothing = 1;
    DeviceContext m_dc;
};

/// The live window, or null with the failure recorded in the operation's name.
NativeWindow* ValidWindow(HWND window, const char* operation);

} // namespace KivoDrawingTools
