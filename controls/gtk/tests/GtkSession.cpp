#include "GtkSession.h"

#include "support/X11TestWindow.h"

#include <gdk/x11/gdkx.h>

#include <GL/gl.h>

#include <chrono>
#include <thread>
#include <utility>

using namespace KivoDrawingTools;

namespace KivoTest {

namespace {

constexpr int pauseAtRest = 200; // milliseconds, after which a view that has moved draws a whole frame
constexpr int pauseOfInput = 30; // until an event has come
int openGlFrames = 0;

gboolean DrawOpenGl(GtkGLArea*, GdkGLContext*, gpointer) {
    ++openGlFrames;
    glClearColor(0.2f, 0.6f, 0.4f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    return TRUE;
}

} // namespace

void GtkSession::SetUp() {
    if (!HasDisplay()) GTEST_SKIP() << "no display";
    gdk_set_allowed_backends("x11");
    g_setenv("GTK_A11Y", "test", TRUE); // readers are told, but there need be none
    ASSERT_TRUE(gtk_init_check());
    desktop = std::make_unique<Desktop>();
    ASSERT_TRUE(desktop->Ok());
    desktop->MovePointer(1200, 1000); // out of the way
}

void GtkSession::Show(GtkWidget* child, int width, int height) {
    window = GTK_WINDOW(gtk_window_new());
    gtk_window_set_decorated(window, FALSE);
    gtk_window_set_default_size(window, width, height);
    gtk_window_set_child(window, child);
    gtk_window_present(window);
    ASSERT_TRUE(Until([this] { return desktop->IsShown(XWindow()); }));
    desktop->Focus(XWindow());
}

void GtkSession::CloseWindow() {
    if (window) gtk_window_set_child(window, nullptr);
    if (window) gtk_window_destroy(std::exchange(window, nullptr));
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

bool GtkSession::Until(const std::function<bool()>& condition) {
    return WaitFor([&] {
        while (g_main_context_iteration(nullptr, FALSE)) {
        }
        return condition();
    });
}

void GtkSession::Settle() {
    Run(pauseAtRest);
}

void GtkSession::Run(int milliseconds) {
    desktop->Sync();
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    Until([&] { return std::chrono::steady_clock::now() >= end; });
    desktop->Sync();
}

int GtkSession::CountFrames(const std::function<void()>& action) {
    GdkFrameClock* const clock = gtk_widget_get_frame_clock(GTK_WIDGET(window));
    int frames = 0;
    const auto count = +[](GdkFrameClock*, int* out) { ++*out; };
    const gulong handler = g_signal_connect(clock, "paint", G_CALLBACK(count), &frames);
    action();
    g_signal_handler_disconnect(clock, handler);
    return frames;
}

xcb_window_t GtkSession::XWindow() const {
    return static_cast<xcb_window_t>(gdk_x11_surface_get_xid(gtk_native_get_surface(GTK_NATIVE(window))));
}

Image GtkSession::Grab() const {
    return desktop->Grab(XWindow());
}

testing::AssertionResult GtkSession::ShowsImage(const Image& expected, const std::string& name) {
    Image shown;
    WaitFor(
        [&] {
            while (g_main_context_iteration(nullptr, FALSE)) {
            }
            shown = Grab();
            return shown.rgba.size() == expected.rgba.size() && Compare(shown, expected).max == 0;
        },
        std::chrono::seconds(10));
    return ImagesAgree(shown, expected, 0, 0.0, name);
}

void GtkSession::MovePointer(int x, int y) {
    const ScreenArea area = desktop->AreaOf(XWindow());
    desktop->MovePointer(area.x + x, area.y + y);
    Run(pauseOfInput);
}

void GtkSession::Click(PointerButton button) {
    desktop->Click(button);
    Run(pauseOfInput);
}

void GtkSession::Drag(PointerButton button, int fromX, int fromY, int toX, int toY) {
    MovePointer(fromX, fromY);
    desktop->Button(button, true);
    Run(pauseOfInput);
    MovePointer(toX, toY);
    desktop->Button(button, false);
    Run(pauseOfInput);
}

bool GtkSession::IsMenuOpen(GtkWidget* widget) {
    GtkWidget* const menu = gtk_widget_get_first_child(widget);
    return menu && gtk_widget_is_visible(menu);
}

GtkGesture* GtkSession::FindGesture(GtkWidget* widget, GType type) {
    GListModel* const controllers = gtk_widget_observe_controllers(widget);
    GtkGesture* found = nullptr;
    for (guint i = 0; i < g_list_model_get_n_items(controllers); ++i) {
        gpointer const controller = g_list_model_get_item(controllers, i);
        if (G_TYPE_CHECK_INSTANCE_TYPE(controller, type)) found = GTK_GESTURE(controller);
        g_object_unref(controller);
    }
    g_object_unref(controllers);
    return found;
}

bool GtkSession::HasLabel(GtkWidget* widget, const char* label) {
    char* const difference =
        gtk_test_accessible_check_property(GTK_ACCESSIBLE(widget), GTK_ACCESSIBLE_PROPERTY_LABEL, label);
    const bool isSame = difference == nullptr;
    g_free(difference);
    return isSame;
}

GtkWidget* GtkSession::NewBlock(const GdkRGBA& color, int width, int height) {
    GtkWidget* const area = gtk_drawing_area_new();
    gtk_widget_set_size_request(area, width, height);
    const auto draw = +[](GtkDrawingArea*, cairo_t* cairo, int, int, gpointer data) {
        gdk_cairo_set_source_rgba(cairo, static_cast<const GdkRGBA*>(data));
        cairo_paint(cairo);
    };
    const auto release = +[](gpointer data) { gdk_rgba_free(static_cast<GdkRGBA*>(data)); };
    gtk_drawing_area_set_draw_func(GTK_DRAWING_AREA(area), draw, gdk_rgba_copy(&color), release);
    return area;
}

GtkWidget* GtkSession::NewOpenGlArea(int width, int height) {
    openGlFrames = 0;
    GtkWidget* const area = gtk_gl_area_new();
    gtk_widget_set_size_request(area, width, height);
    g_signal_connect(area, "render", G_CALLBACK(DrawOpenGl), nullptr);
    return area;
}

int GtkSession::OpenGlFrames() {
    return openGlFrames;
}

} // namespace KivoTest
