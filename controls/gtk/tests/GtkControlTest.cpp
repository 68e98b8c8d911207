// The control for GTK 4 in windows of a real display: what it shows is read from the screen and compared with
// what a plotter alone draws; input comes from the X server.
#include "DeviceArea.h"
#include "GtkSession.h"
#include "KivoPlotView.h"
#include "KivoStyle.h"
#include "KivoView.h"
#include "KivoWindow.h"
#include "support/BarePlot.h"
#include "support/ChildProcess.h"
#include "support/OpenFiles.h"
#include "support/PngImage.h"
#include "support/TestSurfaces.h"

#include <gdk/x11/gdkx.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace KivoDrawingTools;
using namespace KivoTest;

namespace {

constexpr int width = 400, height = 300;
constexpr unsigned int columns = 41, rows = 33;

class GtkControl : public GtkSession {
protected:
    void SetUp() override {
        GtkSession::SetUp();
        if (testing::Test::IsSkipped()) return;
        plot = KIVO_PLOT(g_object_ref_sink(kivo_plot_new()));
        SetHill(plot);
        Show(GTK_WIDGET(plot), width, height);
    }

    void TearDown() override {
        gdk_x11_display_set_surface_scale(gdk_display_get_default(), 1);
        CloseWindow();
        if (plot) g_object_unref(plot);
    }

    static void SetHill(KivoPlot* shown) {
        const TestSurface hill = HillSurface(columns, rows);
        EXPECT_TRUE(kivo_plot_set_grid(shown, hill.points.data(), hill.points.size(), columns, rows));
    }

    CKivoFunctionPlotter& Plotter() const { return *kivo_plot_get_plotter(plot); }

    // Waits until the screen shows the plot as a plotter alone draws it, to the last bit.
    testing::AssertionResult ShowsBare(int w, int h, double scale, const std::string& name) {
        BarePlot bare(w, h, static_cast<float>(scale));
        const TestSurface hill = HillSurface(columns, rows);
        bare.plotter.SetPlotTitle(Plotter().GetPlotTitle());
        bare.plotter.SetData(hill.NewArray(), columns, rows, 1, columns, 3);
        SetView(bare.plotter, GetView(Plotter()));
        return ShowsImage(bare.Smooth(), name);
    }

    // @return whether the plot has ended
    const bool& LeaveToTheWindow() {
        const auto end = +[](gpointer gone, GObject*) { *static_cast<bool*>(gone) = true; };
        g_object_weak_ref(G_OBJECT(plot), end, &isPlotGone);
        g_clear_object(&plot);
        return isPlotGone;
    }

    KivoPlot* plot = nullptr;

private:
    bool isPlotGone = false;
};

class Derived : public CKivoFunctionPlotter {
public:
    int laidOut = 0;
};

// A view that is told the same as the control.
class Twin {
public:
    Twin(int w, int h, double density) : view({}) {
        view.SetSize(w, h, density);
        const TestSurface hill = HillSurface(columns, rows);
        view.SetGrid(hill.points.data(), columns, rows);
        view.Draw();
    }
    bool IsSeenAs(CKivoFunctionPlotter& plotter) {
        const SKivoView mine = GetView(view.Plotter()), other = GetView(plotter);
        const auto isNear = [](double a, double b) { return std::abs(a - b) < 1e-4; };
        return std::equal(mine.rotation, mine.rotation + 9, other.rotation, isNear) &&
               isNear(mine.panX, other.panX) && isNear(mine.panY, other.panY) &&
               isNear(mine.zoom, other.zoom) && mine.plotType == other.plotType;
    }
    CKivoPlotView view;
};

} // namespace

// ---- What is shown

TEST_F(GtkControl, ShowsWhatAPlotterDraws) {
    g_object_set(plot, "title", "Set at once", nullptr);
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-bare"));
}

TEST_F(GtkControl, FollowsTheScaleOfTheScreen) {
    kivo_plot_set_angles(plot, 20, 40);
    ASSERT_TRUE(ShowsBare(width, height, 1.0, "gtk-scale-1"));
    gdk_x11_display_set_surface_scale(gdk_display_get_default(), 2);
    EXPECT_TRUE(ShowsBare(2 * width, 2 * height, 2.0, "gtk-scale-2"));
    gdk_x11_display_set_surface_scale(gdk_display_get_default(), 1);
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-scale-1"));
}

TEST_F(GtkControl, IsMadeOfWholePixelsAtAnyScale) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0})
        for (const double x : {0.0, 1.0, 7.0, 33.0}) {
            const DeviceArea area(x, 2 * x, 101, 57, scale);
            for (const double edge : {(x + area.left) * scale, (2 * x + area.top) * scale})
                EXPECT_NEAR(edge, std::round(edge), 1e-9) << scale;
            EXPECT_NEAR(area.unitWidth * scale, area.width, 1e-9);
            EXPECT_NEAR(area.unitHeight * scale, area.height, 1e-9);
            EXPECT_LE(std::abs(area.width - 101 * scale), 1.0);
            EXPECT_LE(std::abs(area.height - 57 * scale), 1.0);
            const DeviceArea next(x + 101, 2 * x, 40, 57, scale);
            EXPECT_NEAR(area.left + area.unitWidth, 101 + next.left, 1e-9) << "neighbours meet";
        }
}

TEST_F(GtkControl, KeepsTheViewWhereverItGoes) {
    kivo_plot_set_angles(plot, 70, 20);
    ASSERT_TRUE(ShowsBare(width, height, 1.0, "gtk-before"));
    GtkWidget* const widget = GTK_WIDGET(plot);
    gtk_widget_set_visible(widget, FALSE);
    Settle();
    gtk_widget_set_visible(widget, TRUE);
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-hidden-and-shown"));

    CloseWindow();
    GtkWidget* const book = gtk_notebook_new();
    gtk_notebook_set_show_tabs(GTK_NOTEBOOK(book), FALSE);
    gtk_notebook_set_show_border(GTK_NOTEBOOK(book), FALSE);
    gtk_notebook_append_page(GTK_NOTEBOOK(book), widget, nullptr);
    gtk_notebook_append_page(GTK_NOTEBOOK(book), gtk_label_new("another page"), nullptr);
    Show(book, width, height);
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-in-another-window"));
    gtk_notebook_set_current_page(GTK_NOTEBOOK(book), 1);
    Settle();
    gtk_notebook_set_current_page(GTK_NOTEBOOK(book), 0);
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-tab"));
    double azimuth = 0, elevation = 0;
    EXPECT_TRUE(kivo_plot_get_angles(plot, &azimuth, &elevation));
    EXPECT_NEAR(azimuth, 70, 1e-3);
    EXPECT_NEAR(elevation, 20, 1e-3);
}

TEST_F(GtkControl, LeavesWhatLiesOverItWhole) {
    CloseWindow();
    GtkWidget* const overlay = gtk_overlay_new();
    gtk_overlay_set_child(GTK_OVERLAY(overlay), GTK_WIDGET(plot));
    GtkWidget* const block = NewBlock({1, 0, 0, 1}, 60, 40);
    gtk_widget_set_halign(block, GTK_ALIGN_CENTER);
    gtk_widget_set_valign(block, GTK_ALIGN_CENTER);
    gtk_overlay_add_overlay(GTK_OVERLAY(overlay), block);
    Show(overlay, width, height);
    for (int i = 0; i < 10; ++i) {
        kivo_plot_set_angles(plot, 10 * i, 30);
        Settle();
        const Image shown = Grab();
        const auto isBlock = [](const unsigned char* rgb) {
            return rgb[0] == 255 && rgb[1] == 0 && rgb[2] == 0;
        };
        EXPECT_EQ(shown.Count(isBlock), 60 * 40) << i;
    }
}

TEST_F(GtkControl, LeavesTheOpenGlOfItsNeighbourAlone) {
    CloseWindow();
    GtkWidget* const box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, 0);
    GtkWidget* const area = NewOpenGlArea(100, height);
    gtk_widget_set_size_request(GTK_WIDGET(plot), width, height);
    gtk_box_append(GTK_BOX(box), area);
    gtk_box_append(GTK_BOX(box), GTK_WIDGET(plot));
    Show(box, width + 100, height);
    ASSERT_TRUE(Until([] { return OpenGlFrames() > 0; })) << "the neighbour draws nothing";
    for (int i = 0; i < 100; ++i) {
        const int before = OpenGlFrames();
        kivo_plot_set_angles(plot, 3 * i, 30);
        gtk_gl_area_queue_render(GTK_GL_AREA(area));
        ASSERT_TRUE(Until([&] { return OpenGlFrames() > before; })) << i;
    }
    Settle();
    const Image shown = Grab();
    EXPECT_TRUE(shown.IsNear(50, height / 2, {51, 153, 102})) << "as the neighbour cleared it";
    EXPECT_GT(CountInk(shown), 10000);
    BarePlot bare(width, height);
    const TestSurface hill = HillSurface(columns, rows);
    bare.plotter.SetData(hill.NewArray(), columns, rows, 1, columns, 3);
    SetView(bare.plotter, GetView(Plotter()));
    Image right(width, height);
    for (int y = 0; y < height; ++y)
        std::copy_n(shown.Pixel(100, y), 4 * width, right.Pixel(0, y));
    EXPECT_TRUE(ImagesAgree(right, bare.Smooth(), 0, 0.0, "gtk-beside-opengl"));
}

TEST_F(GtkControl, FollowsTheThemeWhenItIsToldTo) {
    const auto ground = [this] {
        Settle();
        return Grab().Pixel(1, 1)[0];
    };
    GtkSettings* const settings = gtk_settings_get_default();
    EXPECT_EQ(ground(), 255);
    g_object_set(settings, "gtk-application-prefer-dark-theme", TRUE, nullptr);
    EXPECT_EQ(ground(), 255) << "it was not told to";
    g_object_set(plot, "follow-theme", TRUE, nullptr);
    EXPECT_LT(ground(), 80);
    EXPECT_GT(GetStyle(Plotter()).inkColor & 255, 200U);
    g_object_set(settings, "gtk-application-prefer-dark-theme", FALSE, nullptr);
    EXPECT_TRUE(Until([&] { return ground() > 200; })) << "it changes with the theme";
    g_object_set(plot, "follow-theme", FALSE, nullptr);
    EXPECT_EQ(GetStyle(Plotter()).inkColor, 0U);
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-no-theme"));
}

// ---- The hand

TEST_F(GtkControl, ButtonsTurnAndShift) {
    Twin twin(width, height, 1.0);
    for (const auto& [button, meant] :
         {std::pair(leftButton, KivoMouseButton::left), std::pair(middleButton, KivoMouseButton::middle),
          std::pair(rightButton, KivoMouseButton::right)}) {
        Drag(button, 150, 120, 210, 160);
        twin.view.Press(meant, 0, {150, 120});
        twin.view.Move(0, {210, 160});
        twin.view.Release(meant);
        EXPECT_TRUE(Until([&] { return twin.IsSeenAs(Plotter()); })) << button;
    }
    EXPECT_FALSE(IsMenuOpen(GTK_WIDGET(plot))) << "it was a drag";
}

TEST_F(GtkControl, CountsPixelsOfADenseScreen) {
    gdk_x11_display_set_surface_scale(gdk_display_get_default(), 2);
    ASSERT_TRUE(ShowsBare(2 * width, 2 * height, 2.0, "gtk-dense"));
    Twin twin(2 * width, 2 * height, 2.0);
    Drag(middleButton, 151, 121, 212, 163);
    twin.view.Press(KivoMouseButton::middle, 0, {151, 121});
    twin.view.Move(0, {212, 163});
    EXPECT_TRUE(Until([&] { return twin.IsSeenAs(Plotter()); }));
}

TEST_F(GtkControl, WheelAndKeysZoomAndTurn) {
    Twin twin(width, height, 1.0);
    MovePointer(90, 70);
    Click(wheelUp);
    twin.view.Wheel(120, {90, 70});
    EXPECT_TRUE(Until([&] { return twin.IsSeenAs(Plotter()); })) << "wheel";
    Click(leftButton);
    EXPECT_TRUE(Until([&] { return gtk_widget_has_focus(GTK_WIDGET(plot)) != FALSE; }));
    const std::pair<xcb_keysym_t, KivoViewKey> keys[] = {
        {0xff53, KivoViewKey::right}, {0xff52, KivoViewKey::up},  {'-', KivoViewKey::minus},
        {'1', KivoViewKey::xy},       {'0', KivoViewKey::normal}, {0xff50, KivoViewKey::home}};
    for (const auto& [key, meant] : keys) {
        desktop->Press(key);
        twin.view.PressKey(meant);
        EXPECT_TRUE(Until([&] { return twin.IsSeenAs(Plotter()); })) << key;
    }
}

TEST_F(GtkControl, AThousandMovesTakeOneFrame) {
    ASSERT_TRUE(ShowsBare(width, height, 1.0, "gtk-still"));
    GtkGesture* const drag = FindGesture(GTK_WIDGET(plot), GTK_TYPE_GESTURE_DRAG);
    ASSERT_NE(drag, nullptr);
    MovePointer(150, 120);
    desktop->Button(leftButton, true);
    ASSERT_TRUE(Until([&] { return gtk_gesture_is_active(drag) != FALSE; }));
    const clock_t begin = clock();
    const auto frames = CountFrames([&] {
        for (int i = 1; i <= 1000; ++i)
            g_signal_emit_by_name(drag, "drag-update", 0.1 * i, 0.05 * i);
        Settle();
    });
    EXPECT_GE(frames, 1);
    EXPECT_LE(frames, 3) << "and one at rest";
    EXPECT_LT(clock() - begin, CLOCKS_PER_SEC) << "a frame for each takes longer";
    desktop->Button(leftButton, false);
    ASSERT_TRUE(Until([&] { return gtk_gesture_is_active(drag) == FALSE; }));
}

TEST_F(GtkControl, AClickOpensTheMenu) {
    GtkWidget* const widget = GTK_WIDGET(plot);
    g_object_set(plot, "has-menu", FALSE, nullptr);
    MovePointer(100, 100);
    Click(rightButton);
    Settle();
    EXPECT_FALSE(IsMenuOpen(widget));
    g_object_set(plot, "has-menu", TRUE, nullptr);
    Click(rightButton);
    EXPECT_TRUE(Until([&] { return IsMenuOpen(widget); }));
    gtk_popover_popdown(GTK_POPOVER(gtk_widget_get_first_child(widget)));
    EXPECT_TRUE(Until([&] { return !IsMenuOpen(widget); }));
    gtk_widget_activate_action(widget, "plot.copy", nullptr);
    GdkContentFormats* const formats = gdk_clipboard_get_formats(gtk_widget_get_clipboard(widget));
    EXPECT_TRUE(gdk_content_formats_contain_gtype(formats, GDK_TYPE_TEXTURE));
    const SKivoView start = GetView(Plotter());
    kivo_plot_zoom(plot, 2.0);
    EXPECT_NEAR(GetView(Plotter()).zoom, 2.0, 1e-4);
    gtk_widget_activate_action(widget, "plot.reset-view", nullptr);
    EXPECT_NEAR(GetView(Plotter()).zoom, start.zoom, 1e-4);
}

TEST_F(GtkControl, TellsWhatIsTracedAndThatTheViewChanges) {
    std::vector<float> point;
    int lost = 0, changes = 0;
    const auto onPoint = +[](KivoPlot*, float x, float y, float z, std::vector<float>* out) {
        *out = {x, y, z};
    };
    const auto count = +[](KivoPlot*, int* out) { ++*out; };
    g_signal_connect(plot, "point-traced", G_CALLBACK(onPoint), &point);
    g_signal_connect(plot, "trace-lost", G_CALLBACK(count), &lost);
    g_signal_connect(plot, "view-changed", G_CALLBACK(count), &changes);
    g_object_set(plot, "tracing", TRUE, nullptr);
    MovePointer(230, 150);
    ASSERT_TRUE(Until([&] { return !point.empty(); }));
    float x = 0, y = 0, z = 0;
    EXPECT_TRUE(kivo_plot_get_traced_point(plot, &x, &y, &z));
    EXPECT_EQ(point, (std::vector<float>{x, y, z}));
    EXPECT_NEAR(z, 2 * std::sin(x) * std::cos(y), 0.05);
    MovePointer(2, 2);
    EXPECT_TRUE(Until([&] { return lost > 0; }));
    EXPECT_EQ(changes, 0);
    Click(wheelUp);
    EXPECT_TRUE(Until([&] { return changes > 0; }));
}

// A host may end the plot in answer to what it is told.
TEST_F(GtkControl, MayBeEndedByItsOwnSignal) {
    const auto close = +[](KivoPlot*, GtkWindow* closed) { gtk_window_set_child(closed, nullptr); };
    g_signal_connect(plot, "view-changed", G_CALLBACK(close), window);
    const bool& isGone = LeaveToTheWindow();
    MovePointer(150, 120);
    Click(wheelUp);
    EXPECT_TRUE(Until([&] { return isGone; }));
}

TEST_F(GtkControl, MayBeEndedWithItsWindowInADrag) {
    const auto close = +[](KivoPlot*, GtkWindow** closed) {
        if (*closed) gtk_window_destroy(std::exchange(*closed, nullptr));
    };
    g_signal_connect(plot, "view-changed", G_CALLBACK(close), &window);
    const bool& isGone = LeaveToTheWindow();
    MovePointer(150, 120);
    desktop->Button(leftButton, true);
    MovePointer(210, 160);
    EXPECT_TRUE(Until([&] { return window == nullptr; }));
    desktop->Button(leftButton, false);
    EXPECT_TRUE(Until([&] { return isGone; }));
}

// ---- Properties and functions

TEST_F(GtkControl, PropertiesAreWhatTheyWereSet) {
    g_object_set(plot, "title", "A", "x-title", "B", "kind", KIVO_PLOT_KIND_YZ, "z-contours", TRUE,
                 "contour-count", 7U, "color-map", "viridis", "smoothing", 3U, "frame-lines", FALSE,
                 "keep-upright", TRUE, "reduce-while-moving", FALSE, nullptr);
    g_autofree char *title = nullptr, *map = nullptr, *failure = nullptr;
    int kind = 0, contours = 0, lines = 1, upright = 0, reduces = 1;
    guint count = 0, smoothing = 0;
    g_object_get(plot, "title", &title, "kind", &kind, "z-contours", &contours, "contour-count", &count,
                 "color-map", &map, "smoothing", &smoothing, "frame-lines", &lines, "keep-upright", &upright,
                 "reduce-while-moving", &reduces, "failure", &failure, nullptr);
    EXPECT_STREQ(title, "A");
    EXPECT_STREQ(Plotter().GetXAxisTitle(), "B");
    EXPECT_EQ(kind, KIVO_PLOT_KIND_YZ);
    EXPECT_EQ(Plotter().GetCurrentPlotType(), 2);
    EXPECT_TRUE(contours && upright && !lines && !reduces);
    EXPECT_TRUE(Plotter().IsShowZIsoContours());
    EXPECT_EQ(count, 7U);
    EXPECT_EQ(smoothing, 3U);
    EXPECT_STREQ(map, "viridis");
    EXPECT_EQ(failure, nullptr);
}

TEST_F(GtkControl, TellsOnlyOfWhatHasChanged) {
    int told = 0;
    const auto count = +[](GObject*, GParamSpec*, int* out) { ++*out; };
    g_signal_connect(plot, "notify::color-map", G_CALLBACK(count), &told);
    g_object_set(plot, "color-map", "no such table", nullptr);
    EXPECT_EQ(told, 0);
    g_object_set(plot, "color-map", "turbo", nullptr);
    EXPECT_EQ(told, 1);
    const GdkRGBA blue = {0, 0, 1, 1}, red = {1, 0, 0, 1};
    kivo_plot_set_colors(plot, &blue, &red);
    EXPECT_EQ(told, 2) << "the table does not count any more";
}

TEST_F(GtkControl, RefusesWhatIsNoGrid) {
    const float numbers[12] = {};
    EXPECT_FALSE(kivo_plot_set_grid(plot, numbers, 12, 2, 3));
    EXPECT_FALSE(kivo_plot_set_grid(plot, numbers, 11, 2, 2));
    EXPECT_FALSE(kivo_plot_set_grid(plot, nullptr, 0, 0, 0));
    EXPECT_FALSE(kivo_plot_set_grid(plot, nullptr, 12, 2, 2));
    EXPECT_FALSE(kivo_plot_set_heights(plot, numbers, 12, 5, 2, 0, 1, 0, 1));
    EXPECT_FALSE(kivo_plot_set_heights(plot, numbers, 12, 4, 3, 0, std::nan(""), 0, 1));
    EXPECT_FALSE(kivo_plot_set_heights(plot, numbers, 12, 1U << 31, 1U << 31, 0, 1, 0, 1));
    EXPECT_FALSE(kivo_plot_set_grid(nullptr, numbers, 12, 2, 2));
    EXPECT_EQ(kivo_plot_get_plotter(nullptr), nullptr);
    EXPECT_FALSE(kivo_plot_set_angles(plot, 0, 91));
    EXPECT_FALSE(kivo_plot_set_color_range(plot, 0, std::numeric_limits<float>::infinity()));
    kivo_plot_zoom(plot, std::nan(""));
    EXPECT_TRUE(ShowsBare(width, height, 1.0, "gtk-refused"));
}

TEST_F(GtkControl, ShowsAPlotterOfADerivedClass) {
    CloseWindow();
    g_object_unref(plot);
    auto own = std::make_unique<Derived>();
    Derived& derived = *own;
    const auto layOut = [&](int w, int h) {
        derived.OnSize(0, w, h);
        ++derived.laidOut;
    };
    plot = KIVO_PLOT(g_object_ref_sink(kivo_plot_new(std::move(own), layOut)));
    ASSERT_EQ(kivo_plot_get_plotter(plot), &derived);
    g_object_set(plot, "title", "A derived one", nullptr);
    SetHill(plot);
    Show(GTK_WIDGET(plot), width, height + 20);
    EXPECT_TRUE(ShowsBare(width, height + 20, 1.0, "gtk-derived"));
    EXPECT_EQ(derived.laidOut, 1);
    MovePointer(150, 120);
    Click(wheelUp);
    EXPECT_TRUE(Until([&] { return GetView(derived).zoom > 1.0; }));

    GtkWidget* const usual = kivo_plot_new(nullptr);
    g_object_ref_sink(usual);
    EXPECT_NE(kivo_plot_get_plotter(KIVO_PLOT(usual)), nullptr);
    g_object_unref(usual);
}

TEST_F(GtkControl, SaysWhatItIsToThoseWhoCannotSee) {
    EXPECT_TRUE(HasLabel(GTK_WIDGET(plot), "Plot"));
    g_object_set(plot, "title", "Wind", nullptr);
    EXPECT_TRUE(HasLabel(GTK_WIDGET(plot), "Wind"));
}

// ---- Many

TEST_F(GtkControl, AHundredLeaveNothing) {
    CloseWindow();
    const auto showOne = [this] {
        KivoPlot* const one = KIVO_PLOT(kivo_plot_new());
        SetHill(one);
        Show(GTK_WIDGET(one), 120, 90);
        EXPECT_TRUE(Until([&] { return gtk_widget_get_width(GTK_WIDGET(one)) == 120; }));
        g_object_unref(kivo_plot_get_picture(one));
        CloseWindow();
    };
    for (int i = 0; i < 10; ++i)
        showOne(); // caches of the toolkit's
    const OpenFiles before;
    for (int i = 0; i < 100; ++i)
        showOne();
    const OpenFiles after;
    EXPECT_LE(after.files, before.files);
    EXPECT_LE(after.threads, before.threads);
    EXPECT_LT(after.megabytes - before.megabytes, 8.0) << "a plot has more than one";
}

// ---- In other programs

TEST_F(GtkControl, IsReachedFromPython) {
#if !defined(KIVO_HAS_INTROSPECTION)
    GTEST_SKIP() << "no introspection";
#endif
    ChildProcess python("/usr/bin/python3", {KIVO_INTROSPECTION_TEST},
                        {{"GI_TYPELIB_PATH", KIVO_CONTROL_FOLDER},
                         {"LD_LIBRARY_PATH", std::string(KIVO_CONTROL_FOLDER) + ":" + KIVO_LIBRARY_FOLDER},
                         {"GTK_A11Y", "none"}});
    EXPECT_EQ(python.WaitForExit().value_or(-1), 0) << python.Errors();
    EXPECT_EQ(python.Output(), "grid True False\n"
                               "properties From Python True viridis normal\n"
                               "angles in a flat plot False\n"
                               "angles True 10 20\n"
                               "map None\n"
                               "picture 300 200 None\n")
        << python.Errors();
}

// Without a driver for OpenGL there are words in the window, not a black rectangle.
TEST_F(GtkControl, SaysWhyNothingIsDrawn) {
    if (std::string(KIVO_GTK4_HOST).empty()) GTEST_SKIP() << "no host";
    CloseWindow();
    const ChildProcess host(
        KIVO_GTK4_HOST, {},
        {{"__EGL_VENDOR_LIBRARY_FILENAMES", "/nowhere"}, {"GSK_RENDERER", "cairo"}, {"GTK_A11Y", "none"}});
    Image shown;
    const auto isInk = [](const unsigned char* rgb) { return rgb[0] < 130 && rgb[1] < 130 && rgb[2] < 130; };
    EXPECT_TRUE(WaitFor(
        [&] {
            const xcb_window_t hosts = desktop->FindWindow("sin(x) cos(y)");
            if (hosts != XCB_NONE) shown = desktop->Grab(hosts);
            const int ink = shown.Count(isInk);
            return ink > 100 && ink < 20000;
        },
        std::chrono::seconds(20)))
        << host.Errors();
    KeepPng(shown, "gtk-failure");
}
