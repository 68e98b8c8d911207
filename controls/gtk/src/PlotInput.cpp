#include "PlotInput.h"

#include "KivoHost.h"

#include <cmath>
#include <optional>
#include <utility>

using namespace KivoDrawingTools;

namespace {

constexpr int wheelStep = 120;        // of OnMouseWheel's kind
constexpr double unitsInAStep = 10.0; // by which a touchpad scrolls where a wheel would turn one step

/// What the controllers of one widget know; it goes with the first of them.
struct Input {
    GtkWidget* widget;
    PlotWidget& plot;
    void (*menu)(GtkWidget*, double, double);
    double pointerX = 0.0, pointerY = 0.0;
    std::optional<KivoMouseButton> pressed = {};
    double turned = 0.0; // of the wheel, less than what has been handed on
    double pinched = 1.0;

    CKivoPlotView& View() const { return plot.View(); }
    POINT Pointer() const { return plot.Pixel(pointerX, pointerY); }
};

unsigned int FlagsOf(GtkEventController* controller) {
    const GdkModifierType state = gtk_event_controller_get_current_event_state(controller);
    return KeyState(false, false, false, (state & GDK_SHIFT_MASK) != 0, (state & GDK_CONTROL_MASK) != 0);
}

std::optional<KivoMouseButton> ButtonOf(guint number) {
    if (number <= GDK_BUTTON_PRIMARY) return KivoMouseButton::left; // 0 is a touch
    if (number == GDK_BUTTON_MIDDLE) return KivoMouseButton::middle;
    if (number == GDK_BUTTON_SECONDARY) return KivoMouseButton::right;
    return std::nullopt;
}

// ---- Buttons and touches

void OnDragBegin(GtkGestureDrag* drag, double x, double y, Input* input) {
    const guint number = gtk_gesture_single_get_current_button(GTK_GESTURE_SINGLE(drag));
    input->pressed = ButtonOf(number);
    if (!input->pressed) {
        gtk_gesture_set_state(GTK_GESTURE(drag), GTK_EVENT_SEQUENCE_DENIED); // keys "back" and "forward"
        return;
    }
    gtk_gesture_set_state(GTK_GESTURE(drag), GTK_EVENT_SEQUENCE_CLAIMED);
    gtk_widget_grab_focus(input->widget);
    Guarded([&] {
        input->View().Press(*input->pressed, FlagsOf(GTK_EVENT_CONTROLLER(drag)), input->plot.Pixel(x, y));
    });
}

void OnDragUpdate(GtkGestureDrag* drag, double right, double down, Input* input) {
    double x = 0.0, y = 0.0;
    if (!input->pressed || !gtk_gesture_drag_get_start_point(drag, &x, &y)) return;
    Guarded([&] {
        input->View().Move(FlagsOf(GTK_EVENT_CONTROLLER(drag)), input->plot.Pixel(x + right, y + down));
    });
}

void OnDragEnd(GtkGestureDrag* drag, double right, double down, Input* input) {
    const std::optional<KivoMouseButton> button = std::exchange(input->pressed, std::nullopt);
    double x = 0.0, y = 0.0;
    if (!button) return;
    gtk_gesture_drag_get_start_point(drag, &x, &y);
    const bool isClick = Guarded([&] { return input->View().Release(*button); }, false);
    if (isClick && *button == KivoMouseButton::right) input->menu(input->widget, x + right, y + down);
}

// Taken away by another gesture, a second finger, or because the widget is hidden.
void OnCancel(GtkGesture*, GdkEventSequence*, Input* input) {
    input->pressed.reset();
    Guarded([&] { input->View().Cancel(); });
}

void OnLongPress(GtkGestureLongPress*, double x, double y, Input* input) {
    OnCancel(nullptr, nullptr, input);
    input->menu(input->widget, x, y);
}

void OnMotion(GtkEventControllerMotion* motion, double x, double y, Input* input) {
    input->pointerX = x;
    input->pointerY = y;
    if (input->pressed) return; // the drag knows
    Guarded([&] { input->View().Move(FlagsOf(GTK_EVENT_CONTROLLER(motion)), input->Pointer()); });
}

// ---- Zooming

gboolean OnScroll(GtkEventControllerScroll* scroll, double, double down, Input* input) {
    const bool isWheel = gtk_event_controller_scroll_get_unit(scroll) == GDK_SCROLL_UNIT_WHEEL;
    input->turned -= down * (isWheel ? wheelStep : wheelStep / unitsInAStep);
    const int whole = ToPixels(std::trunc(input->turned), 1.0);
    input->turned -= whole;
    Guarded([&] { input->View().Wheel(whole, input->Pointer()); });
    return TRUE;
}

void OnPinchBegin(GtkGesture*, GdkEventSequence*, Input* input) {
    input->pinched = 1.0;
}

void OnPinch(GtkGestureZoom* zoom, double scale, Input* input) {
    double x = input->pointerX, y = input->pointerY;
    gtk_gesture_get_bounding_box_center(GTK_GESTURE(zoom), &x, &y);
    const double factor = scale / std::exchange(input->pinched, scale);
    Guarded([&] { input->View().Pinch(factor, input->plot.Pixel(x, y)); });
}

// ---- Keys

std::optional<KivoViewKey> ViewKeyOf(guint key) {
    constexpr std::pair<guint, KivoViewKey> keys[] = {
        {GDK_KEY_Left, KivoViewKey::left},
        {GDK_KEY_KP_Left, KivoViewKey::left},
        {GDK_KEY_Right, KivoViewKey::right},
        {GDK_KEY_KP_Right, KivoViewKey::right},
        {GDK_KEY_Up, KivoViewKey::up},
        {GDK_KEY_KP_Up, KivoViewKey::up},
        {GDK_KEY_Down, KivoViewKey::down},
        {GDK_KEY_KP_Down, KivoViewKey::down},
        {GDK_KEY_plus, KivoViewKey::plus},
        {GDK_KEY_KP_Add, KivoViewKey::plus},
        {GDK_KEY_equal, KivoViewKey::plus},
        {GDK_KEY_minus, KivoViewKey::minus},
        {GDK_KEY_KP_Subtract, KivoViewKey::minus},
        {GDK_KEY_Home, KivoViewKey::home},
        {GDK_KEY_KP_Home, KivoViewKey::home},
        {GDK_KEY_0, KivoViewKey::normal},
        {GDK_KEY_KP_0, KivoViewKey::normal},
        {GDK_KEY_1, KivoViewKey::xy},
        {GDK_KEY_KP_1, KivoViewKey::xy},
        {GDK_KEY_2, KivoViewKey::yz},
        {GDK_KEY_KP_2, KivoViewKey::yz},
        {GDK_KEY_3, KivoViewKey::xz},
        {GDK_KEY_KP_3, KivoViewKey::xz},
    };
    for (const auto& [number, meant] : keys)
        if (number == key) return meant;
    return std::nullopt;
}

gboolean OnKey(GtkEventControllerKey* keys, guint key, guint, GdkModifierType state, Input* input) {
    const bool isMenu = key == GDK_KEY_Menu || (key == GDK_KEY_F10 && (state & GDK_SHIFT_MASK) != 0);
    if (isMenu) {
        input->menu(input->widget, gtk_widget_get_width(input->widget) / 2.0,
                    gtk_widget_get_height(input->widget) / 2.0);
        return TRUE;
    }
    if ((state & (GDK_CONTROL_MASK | GDK_ALT_MASK)) != 0) return FALSE; // shortcuts of the host's
    const std::optional<KivoViewKey> meant = ViewKeyOf(key);
    const unsigned int flags = FlagsOf(GTK_EVENT_CONTROLLER(keys));
    return meant && Guarded([&] { return input->View().PressKey(*meant, flags); }, false);
}

template <typename Handler>
void Connect(gpointer controller, const char* signal, Handler handler, Input* input) {
    g_signal_connect(controller, signal, G_CALLBACK(handler), input);
}

// A gesture holds its widget while a button or finger is down, and the toolkit does not end it with the
// window: without the reset the widget would never go.
void Add(GtkWidget* widget, gpointer controller) {
    g_signal_connect_object(widget, "unmap", G_CALLBACK(gtk_event_controller_reset), controller,
                            G_CONNECT_SWAPPED);
    gtk_widget_add_controller(widget, GTK_EVENT_CONTROLLER(controller));
}

} // namespace

void AddPlotInput(GtkWidget* widget, PlotWidget& plot, void (*menu)(GtkWidget*, double, double)) {
    auto* const input = new Input{widget, plot, menu};
    g_object_set_data_full(G_OBJECT(widget), "kivo-plot-input", input,
                           [](gpointer data) { delete static_cast<Input*>(data); });

    GtkGesture* const drag = gtk_gesture_drag_new();
    gtk_gesture_single_set_button(GTK_GESTURE_SINGLE(drag), 0); // any
    Connect(drag, "drag-begin", OnDragBegin, input);
    Connect(drag, "drag-update", OnDragUpdate, input);
    Connect(drag, "drag-end", OnDragEnd, input);
    Connect(drag, "cancel", OnCancel, input);
    Add(widget, drag);

    GtkGesture* const longPress = gtk_gesture_long_press_new();
    gtk_gesture_single_set_touch_only(GTK_GESTURE_SINGLE(longPress), TRUE);
    Connect(longPress, "pressed", OnLongPress, input);
    Add(widget, longPress);
    gtk_gesture_group(longPress, drag); // the drag's claim would end it

    GtkGesture* const pinch = gtk_gesture_zoom_new();
    Connect(pinch, "begin", OnPinchBegin, input);
    Connect(pinch, "scale-changed", OnPinch, input);
    Add(widget, pinch);
    gtk_gesture_group(pinch, drag);

    GtkEventController* const motion = gtk_event_controller_motion_new();
    Connect(motion, "enter", OnMotion, input);
    Connect(motion, "motion", OnMotion, input);
    Add(widget, motion);

    GtkEventController* const scroll = gtk_event_controller_scroll_new(GTK_EVENT_CONTROLLER_SCROLL_VERTICAL);
    Connect(scroll, "scroll", OnScroll, input);
    Add(widget, scroll);

    GtkEventController* const keys = gtk_event_controller_key_new();
    Connect(keys, "key-pressed", OnKey, input);
    Add(widget, keys);
}
