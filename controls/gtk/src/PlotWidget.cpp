#include "PlotWidget.h"

#include "KivoPicture.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace KivoDrawingTools;

namespace {

// The scale of GTK before 4.12 is a whole number: where the screen's is not, the compositor scales down.
double ScaleOf(GtkWidget* widget) {
#if GTK_CHECK_VERSION(4, 12, 0)
    GtkNative* const native = gtk_widget_get_native(widget);
    GdkSurface* const surface = native ? gtk_native_get_surface(native) : nullptr;
    if (surface) return gdk_surface_get_scale(surface);
#endif
    return gtk_widget_get_scale_factor(widget);
}

GdkTexture* TextureOf(const unsigned char* pixels, int width, int height, std::size_t rowBytes) {
    GBytes* const bytes = g_bytes_new(pixels, rowBytes * static_cast<std::size_t>(height));
    GdkTexture* const texture =
        gdk_memory_texture_new(width, height, GDK_MEMORY_B8G8R8A8_PREMULTIPLIED, bytes, rowBytes);
    g_bytes_unref(bytes);
    return texture;
}

unsigned long ColorRef(const GdkRGBA& color) {
    const auto byte = [](float share) {
        return static_cast<unsigned long>(std::lround(std::clamp(share, 0.0f, 1.0f) * 255.0f));
    };
    return byte(color.red) | byte(color.green) << 8 | byte(color.blue) << 16;
}

// A colour of the theme's own, by the first of these names that it knows.
GdkRGBA ThemeColor(GtkWidget* widget, std::initializer_list<const char*> names, GdkRGBA otherwise) {
    GtkStyleContext* const style = gtk_widget_get_style_context(widget);
    for (const char* const name : names)
        if (gtk_style_context_lookup_color(style, name, &otherwise)) break;
    return otherwise;
}

} // namespace

PlotWidget::PlotWidget(GtkWidget* widget, Events events)
    : m_widget(widget), m_events(std::move(events)), m_view(std::make_unique<CKivoPlotView>(ViewEvents())) {}

PlotWidget::~PlotWidget() {
    if (m_waking != 0) g_source_remove(m_waking);
    if (m_telling != 0) g_source_remove(m_telling);
    if (m_showing != 0) g_source_remove(m_showing);
    g_clear_object(&m_texture);
}

void PlotWidget::UsePlotter(std::unique_ptr<CKivoFunctionPlotter> plotter,
                            std::function<void(int width, int height)> layOut) {
    m_view = std::make_unique<CKivoPlotView>(ViewEvents(std::move(layOut)), std::move(plotter));
}

// ---- What the view asks for

SKivoPlotViewEvents PlotWidget::ViewEvents(std::function<void(int width, int height)> layOut) {
    SKivoPlotViewEvents events;
    events.layOut = std::move(layOut);
    events.redraw = [this] {
        if (!m_isSnapshot) gtk_widget_queue_draw(m_widget);
    };
    events.wake = [this](int milliseconds) { WakeIn(milliseconds); };
    events.traced = [this](const float* point) {
        m_isTraced = point != nullptr;
        if (point) std::copy(point, point + 3, m_point);
        TellLater(trace);
    };
    events.viewChanged = [this] { TellLater(viewChange); };
    events.failed = [this] { TellLater(failure); };
    return events;
}

void PlotWidget::WakeIn(int milliseconds) {
    if (m_waking != 0) g_source_remove(std::exchange(m_waking, 0));
    if (milliseconds < 0) return;
    const auto wake = [](gpointer data) -> gboolean {
        auto& self = *static_cast<PlotWidget*>(data);
        self.m_waking = 0;
        Guarded([&] { self.m_view->Wake(); });
        return G_SOURCE_REMOVE;
    };
    m_waking = g_timeout_add(static_cast<guint>(milliseconds), wake, this);
}

// A host may do anything when it is told, even end the widget: so never while the view is at work. Ahead of
// the next frame, so that what a host shows of it is no frame late.
void PlotWidget::TellLater(unsigned int what) {
    m_toTell |= what;
    if (m_telling != 0) return;
    const auto tell = [](gpointer data) -> gboolean {
        auto& self = *static_cast<PlotWidget*>(data);
        self.m_telling = 0;
        self.TellNow();
        return G_SOURCE_REMOVE;
    };
    m_telling = g_idle_add_full(G_PRIORITY_DEFAULT, tell, this, nullptr);
}

void PlotWidget::TellNow() {
    GtkWidget* const kept = GTK_WIDGET(g_object_ref(m_widget));
    const unsigned int what = std::exchange(m_toTell, nothing);
    if ((what & trace) != 0) m_events.traced(m_isTraced ? m_point : nullptr);
    if ((what & viewChange) != 0) m_events.viewChanged();
    if ((what & failure) != 0) m_events.failed();
    g_object_unref(kept);
}

// ---- Drawing

DeviceArea PlotWidget::Area() const {
    double x = 0.0, y = 0.0, shadowLeft = 0.0, shadowTop = 0.0;
    GtkNative* const native = gtk_widget_get_native(m_widget);
    if (native) {
        gtk_widget_translate_coordinates(m_widget, GTK_WIDGET(native), 0.0, 0.0, &x, &y);
        gtk_native_get_surface_transform(native, &shadowLeft, &shadowTop);
    }
    return {x + shadowLeft, y + shadowTop, static_cast<double>(gtk_widget_get_width(m_widget)),
            static_cast<double>(gtk_widget_get_height(m_widget)), ScaleOf(m_widget)};
}

POINT PlotWidget::Pixel(double x, double y) const {
    return {ToPixels(x - m_imageLeft, m_scale), ToPixels(y - m_imageTop, m_scale)};
}

void PlotWidget::Snapshot(GtkSnapshot* snapshot) {
    const DeviceArea area = Area();
    m_scale = ScaleOf(m_widget);
    m_imageLeft = area.left;
    m_imageTop = area.top;
    ShowAgainAtNewSize(area);
    m_isSnapshot = true;
    Guarded([&] {
        m_view->SetSize(area.width, area.height, std::clamp(m_scale, 0.1, 8.0));
        if (m_texture && !m_view->IsFrameDue()) return;
        const SKivoPlotImage image = m_view->Draw();
        g_clear_object(&m_texture);
        if (image.pixels) m_texture = TextureOf(image.pixels, image.width, image.height, image.rowBytes);
    });
    m_isSnapshot = false;
    if (m_texture) {
        graphene_rect_t place;
        graphene_rect_init(&place, static_cast<float>(area.left), static_cast<float>(area.top),
                           static_cast<float>(area.unitWidth), static_cast<float>(area.unitHeight));
        gtk_snapshot_append_texture(snapshot, m_texture, &place);
    } else {
        SnapshotFailure(snapshot);
    }
    if (gtk_widget_has_visible_focus(m_widget)) SnapshotFocus(snapshot);
}

// GTK's own context knows the new size from its next frame on where a software driver draws through GLX. Of
// the same texture it would draw nothing.
void PlotWidget::ShowAgainAtNewSize(const DeviceArea& area) {
    const int shownWidth = std::exchange(m_shownWidth, area.width);
    const int shownHeight = std::exchange(m_shownHeight, area.height);
    if ((shownWidth == area.width && shownHeight == area.height) || m_showing != 0) return;
    const auto show = [](gpointer data) -> gboolean {
        auto& self = *static_cast<PlotWidget*>(data);
        self.m_showing = 0;
        g_clear_object(&self.m_texture);
        gtk_widget_queue_draw(self.m_widget);
        return G_SOURCE_REMOVE;
    };
    m_showing = g_idle_add(show, this);
}

void PlotWidget::SnapshotFailure(GtkSnapshot* snapshot) {
    if (m_view->Failure().empty()) return;
    constexpr int margin = 12;
    GdkRGBA color;
    gtk_style_context_get_color(gtk_widget_get_style_context(m_widget), &color);
    PangoLayout* const words = gtk_widget_create_pango_layout(m_widget, m_view->Failure().c_str());
    pango_layout_set_width(words, std::max(gtk_widget_get_width(m_widget) - 2 * margin, 1) * PANGO_SCALE);
    pango_layout_set_wrap(words, PANGO_WRAP_WORD_CHAR);
    const graphene_point_t place = {margin, margin};
    gtk_snapshot_save(snapshot);
    gtk_snapshot_translate(snapshot, &place);
    gtk_snapshot_append_layout(snapshot, words, &color);
    gtk_snapshot_restore(snapshot);
    g_object_unref(words);
}

// Themes draw it for widgets that they know.
void PlotWidget::SnapshotFocus(GtkSnapshot* snapshot) {
    const GdkRGBA color =
        ThemeColor(m_widget, {"accent_color", "theme_selected_bg_color"}, {0.21f, 0.52f, 0.89f, 1.0f});
    const float widths[] = {2, 2, 2, 2};
    const GdkRGBA colors[] = {color, color, color, color};
    GskRoundedRect frame;
    const graphene_rect_t whole = {{0, 0},
                                   {static_cast<float>(gtk_widget_get_width(m_widget)),
                                    static_cast<float>(gtk_widget_get_height(m_widget))}};
    gsk_rounded_rect_init_from_rect(&frame, &whole, 0);
    gtk_snapshot_append_border(snapshot, &frame, widths, colors);
}

GdkTexture* PlotWidget::Picture() {
    m_view->Update();
    const SKivoPlotImage image = m_view->Draw();
    if (!image.pixels) return nullptr;
    g_clear_object(&m_texture);
    m_texture = TextureOf(image.pixels, image.width, image.height, image.rowBytes);
    gtk_widget_queue_draw(m_widget);
    return GDK_TEXTURE(g_object_ref(m_texture));
}

// ---- Colours

void PlotWidget::FollowTheme(bool follow) {
    if (m_followsTheme == follow) return;
    m_followsTheme = follow;
    if (follow)
        TakeTheme();
    else
        m_view->SetColors({}, {});
}

void PlotWidget::TakeTheme() {
    if (!m_followsTheme) return;
    GdkRGBA ink;
    gtk_style_context_get_color(gtk_widget_get_style_context(m_widget), &ink);
    const GdkRGBA ground = ThemeColor(m_widget, {"view_bg_color", "theme_base_color"}, {1, 1, 1, 1});
    m_view->SetColors(ColorRef(ink), ColorRef(ground));
}
