/* The same from C, found by pkg-config. */
#include <kivoplot.h>

int main(void) {
    const float heights[] = {0, 1, 1, 0};
    GtkWidget* plot;
    gtk_init();
    plot = kivo_plot_new();
    g_object_ref_sink(plot);
    if (!kivo_plot_set_heights(KIVO_PLOT(plot), heights, 4, 2, 2, 0, 1, 0, 1)) return 1;
    g_object_unref(plot);
    return 0;
}
