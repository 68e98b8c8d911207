// Shows a plot in a window of GTK, and looks whether it is there.
#include <kivoplot.h>
#include <KivoVersion.h>

#include <cstdio>

int main() {
    gtk_init();
    const float heights[] = {0, 1, 1, 0};
    GtkWidget* const plot = kivo_plot_new();
    kivo_plot_set_heights(KIVO_PLOT(plot), heights, 4, 2, 2, 0, 1, 0, 1);
    GtkWidget* const window = gtk_window_new();
    gtk_window_set_child(GTK_WINDOW(window), plot);
    gtk_window_present(GTK_WINDOW(window));
    while (gtk_widget_get_width(plot) == 0)
        g_main_context_iteration(nullptr, TRUE);
    GdkTexture* const picture = kivo_plot_get_picture(KIVO_PLOT(plot));
    std::printf("%s\n", KIVO_VERSION);
    return picture && gdk_texture_get_width(picture) > 100 ? 0 : 1;
}
