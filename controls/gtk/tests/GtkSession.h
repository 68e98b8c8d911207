// GTK in a test: one window on the display, what the screen shows of it, and input for it.
#pragma once

#include "kivoplot.h"
#include "support/Desktop.h"
#include "support/Image.h"
#include "support/WaitFor.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace KivoTest {

class GtkSession : public testing::Test {
protected:
    void SetUp() override;

    /// Shows a widget alone in a window without a frame.
    void Show(GtkWidget* child, int width, int height);
    void CloseWindow();
    /// Runs GTK until the condition holds. @return whether it came to that
    static bool Until(const std::function<bool()>& condition);
    /// Runs GTK until the window shows all that was asked for, and nothing moves any more.
    void Settle();
    void Run(int milliseconds);
    /// How many frames the window takes meanwhile.
    int CountFrames(const std::function<void()>& action);

    /// The window as the screen shows it.
    KivoDrawingTools::Image Grab() const;
    /// Waits until the window shows this, to the last bit.
    testing::AssertionResult ShowsImage(const KivoDrawingTools::Image& expected, const std::string& name);

    // Input at places of the window, in pixels.
    void MovePointer(int x, int y);
    void Click(PointerButton button);
    /// Press, move and release, each when the one before has arrived.
    void Drag(PointerButton button, int fromX, int fromY, int toX, int toY);

    static bool IsMenuOpen(GtkWidget* widget);
    static GtkGesture* FindGesture(GtkWidget* widget, GType type);
    static bool HasLabel(GtkWidget* widget, const char* label);
    /// A widget of one colour.
    static GtkWidget* NewBlock(const GdkRGBA& color, int width, int height);
    /// A neighbour that clears itself with OpenGL, to (51, 153, 102).
    static GtkWidget* NewOpenGlArea(int width, int height);
    static int OpenGlFrames();

    GtkWindow* window = nullptr;
    std::unique_ptr<Desktop> desktop;

private:
    xcb_window_t XWindow() const;
};

} // namespace KivoTest
