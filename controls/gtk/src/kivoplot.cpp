#include "kivoplot.h"

#include "KivoColorMap.h"
#include "KivoView.h"
#include "PlotInput.h"
#include "PlotMenu.h"
#include "PlotWidget.h"

#include <array>
#include <cstdint>
#include <new>
#include <string>
#include <utility>

using namespace KivoDrawingTools;

// What of it the plotter does not know, and the rest of the widget. Without memory for that the widget is an
// empty one.
struct _KivoPlot {
    GtkWidget parent_instance;
    PlotWidget* plot;
    GtkWidget* menu;
    char* color_map;
    guint contour_count, smoothing;
    bool reduces, is_upright, has_menu;
};

G_DEFINE_TYPE(KivoPlot, kivo_plot, GTK_TYPE_WIDGET)

namespace {

enum Property : guint {
    titleProperty = 1,
    xTitleProperty,
    yTitleProperty,
    zTitleProperty,
    kindProperty,
    tracingProperty,
    frameLinesProperty,
    gridLinesProperty,
    xContoursProperty,
    yContoursProperty,
    zContoursProperty,
    contourCountProperty,
    colorMapProperty,
    smoothingProperty,
    reduceProperty,
    uprightProperty,
    themeProperty,
    menuProperty,
    failureProperty,
    propertyCount
};
enum Signal { pointTraced, traceLost, viewChanged, signalCount };

std::array<GParamSpec*, propertyCount> properties;
std::array<guint, signalCount> signals;

constexpr guint usualContours = 20, mostContours = 1000, usualSmoothing = 2, mostSmoothing = 4;
constexpr int naturalWidth = 400, naturalHeight = 300;
constexpr char noMemory[] = "The plot: there is not enough memory.";
constexpr char description[] = "A surface in three dimensions. The arrow keys turn it, plus and minus zoom, "
                               "Home resets the view, 0 to 3 choose the plot.";

// ---- What other languages hand in may be no plot

PlotWidget* PlotOf(KivoPlot* self) {
    return KIVO_IS_PLOT(self) ? self->plot : nullptr;
}

/// Calls with the plotter, and shows what has been set.
/// @return what the action returns; false where there is no plotter, or no memory
template <typename Action>
bool Change(KivoPlot* self, Action action) {
    PlotWidget* const plot = PlotOf(self);
    if (!plot) return false;
    return Guarded(
        [&] {
            const bool isDone = action(*plot, plot->View().Plotter());
            if (isDone) plot->View().Update();
            return isDone;
        },
        false);
}

// ---- Properties

void NameForReaders(KivoPlot* self, const char* title) {
    gtk_accessible_update_property(GTK_ACCESSIBLE(self), GTK_ACCESSIBLE_PROPERTY_LABEL,
                                   *title ? title : "Plot", -1);
}

bool SetText(KivoPlot* self, CKivoFunctionPlotter& plotter, guint id, const char* text) {
    if (!text) text = "";
    switch (id) {
    case titleProperty:
        plotter.SetPlotTitle(text);
        NameForReaders(self, text);
        break;
    case xTitleProperty:
        plotter.SetXAxisTitle(text);
        break;
    case yTitleProperty:
        plotter.SetYAxisTitle(text);
        break;
    default:
        plotter.SetZAxisTitle(text);
    }
    return true;
}

const char* Text(const CKivoFunctionPlotter& plotter, guint id) {
    switch (id) {
    case titleProperty:
        return plotter.GetPlotTitle();
    case xTitleProperty:
        return plotter.GetXAxisTitle();
    case yTitleProperty:
        return plotter.GetYAxisTitle();
    default:
        return plotter.GetZAxisTitle();
    }
}

bool SetColors(KivoPlot* self, CKivoFunctionPlotter& plotter, const char* name) {
    for (int axis = 0; axis < 3; ++axis) {
        const int result = name ? SetColorMap(plotter, axis, name) : SetColorMap(plotter, axis, nullptr, 0);
        if (result != 0) return false;
    }
    g_free(self->color_map);
    self->color_map = g_strdup(name);
    return true;
}

bool SetKind(CKivoFunctionPlotter& plotter, int kind) {
    constexpr int (CKivoFunctionPlotter::*show[])() = {
        &CKivoFunctionPlotter::SwitchToNormalPlot, &CKivoFunctionPlotter::SwitchToXYProjectPlot,
        &CKivoFunctionPlotter::SwitchToYZProjectPlot, &CKivoFunctionPlotter::SwitchToZXProjectPlot};
    const auto showKind = show[kind];
    if (plotter.GetCurrentPlotType() != kind) (plotter.*showKind)();
    return true;
}

bool SetSwitch(KivoPlot* self, PlotWidget& plot, guint id, bool on) {
    CKivoFunctionPlotter& plotter = plot.View().Plotter();
    switch (id) {
    case tracingProperty:
        plotter.Trace(on);
        break;
    case frameLinesProperty:
        plotter.ShowFrameLines(on);
        break;
    case gridLinesProperty:
        plotter.ShowGridLines(on);
        break;
    case xContoursProperty:
        plotter.ShowXIsoContours(on);
        break;
    case yContoursProperty:
        plotter.ShowYIsoContours(on);
        break;
    case zContoursProperty:
        plotter.ShowZIsoContours(on);
        break;
    case reduceProperty:
        plot.View().ReduceWhileMoving(self->reduces = on);
        break;
    case uprightProperty:
        plot.View().KeepUpright(self->is_upright = on);
        break;
    case themeProperty:
        plot.FollowTheme(on);
        break;
    default:
        self->has_menu = on;
    }
    return true;
}

bool IsOn(const KivoPlot* self, PlotWidget& plot, guint id) {
    const CKivoFunctionPlotter& plotter = plot.View().Plotter();
    switch (id) {
    case tracingProperty:
        return plotter.IsTracing();
    case frameLinesProperty:
        return plotter.IsShowFrameLines();
    case gridLinesProperty:
        return plotter.IsShowGridLines();
    case xContoursProperty:
        return plotter.IsShowXIsoContours();
    case yContoursProperty:
        return plotter.IsShowYIsoContours();
    case zContoursProperty:
        return plotter.IsShowZIsoContours();
    case reduceProperty:
        return self->reduces;
    case uprightProperty:
        return self->is_upright;
    case themeProperty:
        return plot.FollowsTheme();
    default:
        return self->has_menu;
    }
}

bool SetCount(KivoPlot* self, PlotWidget& plot, guint id, guint count) {
    if (id == smoothingProperty) {
        self->smoothing = count;
        return plot.View().SetSmoothing(static_cast<int>(count)) == 0;
    }
    if (plot.View().Plotter().SetIsoContourCount(count) != 0) return false;
    self->contour_count = count;
    return true;
}

void SetProperty(GObject* object, guint id, const GValue* value, GParamSpec* property) {
    KivoPlot* const self = KIVO_PLOT(object);
    const GType type = G_PARAM_SPEC_VALUE_TYPE(property);
    const bool isSet = Change(self, [&](PlotWidget& plot, CKivoFunctionPlotter& plotter) {
        if (id == kindProperty) return SetKind(plotter, g_value_get_enum(value));
        if (id == colorMapProperty) return SetColors(self, plotter, g_value_get_string(value));
        if (type == G_TYPE_BOOLEAN) return SetSwitch(self, plot, id, g_value_get_boolean(value) != FALSE);
        if (type == G_TYPE_UINT) return SetCount(self, plot, id, g_value_get_uint(value));
        return SetText(self, plotter, id, g_value_get_string(value));
    });
    if (isSet) g_object_notify_by_pspec(object, property);
}

const char* FailureOf(const KivoPlot* self) {
    if (!self->plot) return noMemory;
    const std::string& failure = self->plot->View().Failure();
    return failure.empty() ? nullptr : failure.c_str();
}

void GetProperty(GObject* object, guint id, GValue* value, GParamSpec* property) {
    const KivoPlot* const self = KIVO_PLOT(object);
    const GType type = G_PARAM_SPEC_VALUE_TYPE(property);
    if (id == failureProperty) g_value_set_string(value, FailureOf(self));
    if (id == failureProperty || !self->plot) return;
    const CKivoFunctionPlotter& plotter = self->plot->View().Plotter();
    if (id == kindProperty)
        g_value_set_enum(value, plotter.GetCurrentPlotType());
    else if (id == colorMapProperty)
        g_value_set_string(value, self->color_map);
    else if (type == G_TYPE_BOOLEAN)
        g_value_set_boolean(value, IsOn(self, *self->plot, id));
    else if (type == G_TYPE_UINT)
        g_value_set_uint(value, id == smoothingProperty ? self->smoothing : self->contour_count);
    else
        g_value_set_string(value, Text(plotter, id));
}

// SetProperty tells of what has changed by itself: what was refused has not.
constexpr auto readWrite =
    static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS | G_PARAM_EXPLICIT_NOTIFY);

void AddSwitch(Property id, const char* name, bool usual) {
    properties[id] = g_param_spec_boolean(name, nullptr, nullptr, usual, readWrite);
}

void AddText(Property id, const char* name, const char* usual = "") {
    properties[id] = g_param_spec_string(name, nullptr, nullptr, usual, readWrite);
}

void AddProperties(GObjectClass* type) {
    AddText(titleProperty, "title");
    AddText(xTitleProperty, "x-title");
    AddText(yTitleProperty, "y-title");
    AddText(zTitleProperty, "z-title");
    properties[kindProperty] =
        g_param_spec_enum("kind", nullptr, nullptr, KIVO_TYPE_PLOT_KIND, KIVO_PLOT_KIND_NORMAL, readWrite);
    AddSwitch(tracingProperty, "tracing", false);
    AddSwitch(frameLinesProperty, "frame-lines", true);
    AddSwitch(gridLinesProperty, "grid-lines", true);
    AddSwitch(xContoursProperty, "x-contours", false);
    AddSwitch(yContoursProperty, "y-contours", false);
    AddSwitch(zContoursProperty, "z-contours", false);
    properties[contourCountProperty] =
        g_param_spec_uint("contour-count", nullptr, nullptr, 1, mostContours, usualContours, readWrite);
    AddText(colorMapProperty, "color-map", nullptr);
    properties[smoothingProperty] =
        g_param_spec_uint("smoothing", nullptr, nullptr, 1, mostSmoothing, usualSmoothing, readWrite);
    AddSwitch(reduceProperty, "reduce-while-moving", true);
    AddSwitch(uprightProperty, "keep-upright", false);
    AddSwitch(themeProperty, "follow-theme", false);
    AddSwitch(menuProperty, "has-menu", true);
    constexpr auto readOnly = static_cast<GParamFlags>(G_PARAM_READABLE | G_PARAM_STATIC_STRINGS);
    properties[failureProperty] = g_param_spec_string("failure", nullptr, nullptr, nullptr, readOnly);
    g_object_class_install_properties(type, propertyCount, properties.data());
}

// ---- The widget

void Measure(GtkWidget*, GtkOrientation orientation, int, int* least, int* natural, int*, int*) {
    *least = 1;
    *natural = orientation == GTK_ORIENTATION_HORIZONTAL ? naturalWidth : naturalHeight;
}

void Allocate(GtkWidget* widget, int, int, int) {
    if (KIVO_PLOT(widget)->menu) gtk_popover_present(GTK_POPOVER(KIVO_PLOT(widget)->menu));
    gtk_widget_queue_draw(widget);
}

void Snapshot(GtkWidget* widget, GtkSnapshot* snapshot) {
    if (PlotWidget* const plot = KIVO_PLOT(widget)->plot) plot->Snapshot(snapshot);
}

void StyleChanged(GtkWidget* widget, GtkCssStyleChange* change) {
    GTK_WIDGET_CLASS(kivo_plot_parent_class)->css_changed(widget, change);
    PlotWidget* const plot = KIVO_PLOT(widget)->plot;
    if (plot) Guarded([&] { plot->TakeTheme(); });
}

void OnMenu(GtkWidget* widget, double x, double y) {
    KivoPlot* const self = KIVO_PLOT(widget);
    if (self->has_menu) OpenPlotMenu(widget, &self->menu, x, y);
}

void Dispose(GObject* object) {
    g_clear_pointer(&KIVO_PLOT(object)->menu, gtk_widget_unparent);
    G_OBJECT_CLASS(kivo_plot_parent_class)->dispose(object);
}

void Finalize(GObject* object) {
    KivoPlot* const self = KIVO_PLOT(object);
    delete self->plot;
    g_free(self->color_map);
    G_OBJECT_CLASS(kivo_plot_parent_class)->finalize(object);
}

PlotWidget::Events EventsOf(KivoPlot* self) {
    PlotWidget::Events events;
    events.traced = [self](const float* point) {
        if (point)
            g_signal_emit(self, signals[pointTraced], 0, point[0], point[1], point[2]);
        else
            g_signal_emit(self, signals[traceLost], 0);
    };
    events.viewChanged = [self] {
        g_signal_emit(self, signals[viewChanged], 0);
        g_object_notify_by_pspec(G_OBJECT(self), properties[kindProperty]);
    };
    events.failed = [self] { g_object_notify_by_pspec(G_OBJECT(self), properties[failureProperty]); };
    return events;
}

} // namespace

static void kivo_plot_class_init(KivoPlotClass* type) {
    GObjectClass* const object = G_OBJECT_CLASS(type);
    object->set_property = SetProperty;
    object->get_property = GetProperty;
    object->dispose = Dispose;
    object->finalize = Finalize;
    AddProperties(object);

    const auto add = [type](const char* name, guint numbers) {
        return g_signal_new(name, G_TYPE_FROM_CLASS(type), G_SIGNAL_RUN_LAST, 0, nullptr, nullptr, nullptr,
                            G_TYPE_NONE, numbers, G_TYPE_FLOAT, G_TYPE_FLOAT, G_TYPE_FLOAT);
    };
    signals[pointTraced] = add("point-traced", 3);
    signals[traceLost] = add("trace-lost", 0);
    signals[viewChanged] = add("view-changed", 0);

    GtkWidgetClass* const widget = GTK_WIDGET_CLASS(type);
    widget->measure = Measure;
    widget->size_allocate = Allocate;
    widget->snapshot = Snapshot;
    widget->css_changed = StyleChanged;
    gtk_widget_class_set_css_name(widget, "kivoplot");
    gtk_widget_class_set_accessible_role(widget, GTK_ACCESSIBLE_ROLE_IMG);
    InstallPlotActions(widget);
}

static void kivo_plot_init(KivoPlot* self) {
    GtkWidget* const widget = GTK_WIDGET(self);
    self->contour_count = usualContours;
    self->smoothing = usualSmoothing;
    self->reduces = self->has_menu = true;
    gtk_widget_set_focusable(widget, TRUE);
    gtk_widget_set_hexpand(widget, TRUE);
    gtk_widget_set_vexpand(widget, TRUE);
    gtk_widget_set_overflow(widget, GTK_OVERFLOW_HIDDEN);
    NameForReaders(self, "");
    gtk_accessible_update_property(GTK_ACCESSIBLE(self), GTK_ACCESSIBLE_PROPERTY_DESCRIPTION, description,
                                   -1);
    Guarded([&] {
        self->plot = new PlotWidget(widget, EventsOf(self));
        AddPlotInput(widget, *self->plot, OnMenu);
    });
}

// ---- Functions

GType kivo_plot_kind_get_type() {
    static const GEnumValue values[] = {{KIVO_PLOT_KIND_NORMAL, "KIVO_PLOT_KIND_NORMAL", "normal"},
                                        {KIVO_PLOT_KIND_XY, "KIVO_PLOT_KIND_XY", "xy"},
                                        {KIVO_PLOT_KIND_YZ, "KIVO_PLOT_KIND_YZ", "yz"},
                                        {KIVO_PLOT_KIND_XZ, "KIVO_PLOT_KIND_XZ", "xz"},
                                        {0, nullptr, nullptr}};
    static const GType type = g_enum_register_static("KivoPlotKind", values);
    return type;
}

GtkWidget* kivo_plot_new() {
    return GTK_WIDGET(g_object_new(KIVO_TYPE_PLOT, nullptr));
}

GtkWidget* kivo_plot_new(std::unique_ptr<CKivoFunctionPlotter> plotter,
                         std::function<void(int width, int height)> layOut) {
    KivoPlot* const self = KIVO_PLOT(kivo_plot_new());
    const bool isMade = Change(self, [&](PlotWidget& plot, CKivoFunctionPlotter&) {
        plot.UsePlotter(std::move(plotter), std::move(layOut));
        return true;
    });
    if (isMade) return GTK_WIDGET(self);
    g_object_ref_sink(self);
    g_object_unref(self);
    return nullptr;
}

CKivoFunctionPlotter* kivo_plot_get_plotter(KivoPlot* self) {
    PlotWidget* const plot = PlotOf(self);
    return plot ? &plot->View().Plotter() : nullptr;
}

gboolean kivo_plot_set_grid(KivoPlot* self, const float* points, gsize n_numbers, guint columns, guint rows) {
    return Change(self, [&](PlotWidget& plot, CKivoFunctionPlotter&) {
        const bool isGrid = n_numbers % 3 == 0 && n_numbers / 3 == std::uint64_t{columns} * rows;
        return isGrid && plot.View().SetGrid(points, columns, rows) == 0;
    });
}

gboolean kivo_plot_set_heights(KivoPlot* self, const float* heights, gsize n_heights, guint columns,
                               guint rows, double x_min, double x_max, double y_min, double y_max) {
    return Change(self, [&](PlotWidget& plot, CKivoFunctionPlotter&) {
        return n_heights == std::uint64_t{columns} * rows &&
               plot.View().SetHeights(heights, columns, rows, x_min, x_max, y_min, y_max) == 0;
    });
}

void kivo_plot_set_colors(KivoPlot* self, const GdkRGBA* low, const GdkRGBA* high) {
    g_return_if_fail(low && high);
    const float first[] = {low->red, low->green, low->blue, 1.0f};
    const float last[] = {high->red, high->green, high->blue, 1.0f};
    const bool isSet = Change(self, [&](PlotWidget&, CKivoFunctionPlotter& plotter) {
        plotter.SetGradientColor(first, last);
        return true;
    });
    if (!isSet || !self->color_map) return;
    g_clear_pointer(&self->color_map, g_free);
    g_object_notify_by_pspec(G_OBJECT(self), properties[colorMapProperty]);
}

gboolean kivo_plot_set_color_range(KivoPlot* self, float min, float max) {
    return Change(self, [&](PlotWidget&, CKivoFunctionPlotter& plotter) {
        return SetColorRange(plotter, 2, min, max) == 0;
    });
}

gboolean kivo_plot_set_angles(KivoPlot* self, double azimuth, double elevation) {
    return Change(self, [&](PlotWidget&, CKivoFunctionPlotter& plotter) {
        return SetViewAngles(plotter, azimuth, elevation) == 0;
    });
}

gboolean kivo_plot_get_angles(KivoPlot* self, double* azimuth, double* elevation) {
    PlotWidget* const plot = PlotOf(self);
    double around = 0.0, above = 0.0;
    const bool isUpright = plot && GetViewAngles(plot->View().Plotter(), around, above) == 0;
    if (azimuth) *azimuth = around;
    if (elevation) *elevation = above;
    return isUpright;
}

void kivo_plot_zoom(KivoPlot* self, double factor) {
    Change(self, [&](PlotWidget& plot, CKivoFunctionPlotter& plotter) {
        if (!(factor > 0.0)) return false;
        GtkWidget* const widget = GTK_WIDGET(self);
        const double x = gtk_widget_get_width(widget) / 2.0;
        const double y = gtk_widget_get_height(widget) / 2.0;
        return ZoomView(plotter, factor, plot.Pixel(x, y)) == 0;
    });
}

void kivo_plot_reset_view(KivoPlot* self) {
    Change(self, [](PlotWidget&, CKivoFunctionPlotter& plotter) { return ResetView(plotter) == 0; });
}

gboolean kivo_plot_get_traced_point(KivoPlot* self, float* x, float* y, float* z) {
    PlotWidget* const plot = PlotOf(self);
    float point[3] = {};
    const bool isTraced = plot && plot->View().Plotter().GetTracePoint(point);
    float* const places[] = {x, y, z};
    for (int i = 0; i < 3; ++i)
        if (places[i]) *places[i] = isTraced ? point[i] : 0.0f;
    return isTraced;
}

GdkTexture* kivo_plot_get_picture(KivoPlot* self) {
    PlotWidget* const plot = PlotOf(self);
    if (!plot) return nullptr;
    return Guarded([&] { return plot->Picture(); }, static_cast<GdkTexture*>(nullptr));
}

void kivo_plot_refresh(KivoPlot* self) {
    Change(self, [](PlotWidget&, CKivoFunctionPlotter&) { return true; });
}
