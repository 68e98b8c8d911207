#include "PlotMenu.h"

#include "kivoplot.h"

namespace {

void Copy(GtkWidget* widget, const char*, GVariant*) {
    GdkTexture* const picture = kivo_plot_get_picture(KIVO_PLOT(widget));
    if (!picture) return;
    gdk_clipboard_set_texture(gtk_widget_get_clipboard(widget), picture);
    g_object_unref(picture);
}

void ShowError(GtkWidget* widget, const char* words) {
    GtkRoot* const root = gtk_widget_get_root(widget);
    GtkWindow* const window = GTK_IS_WINDOW(root) ? GTK_WINDOW(root) : nullptr;
    GtkWidget* const dialog = gtk_message_dialog_new(window, GTK_DIALOG_DESTROY_WITH_PARENT,
                                                     GTK_MESSAGE_ERROR, GTK_BUTTONS_CLOSE, "%s", words);
    g_signal_connect(dialog, "response", G_CALLBACK(gtk_window_destroy), nullptr);
    gtk_window_present(GTK_WINDOW(dialog));
}

// The picture is the one that was shown when the menu was open; it is the chooser's.
void OnChosen(GtkNativeDialog* chooser, int response, GtkWidget* widget) {
    GFile* file = gtk_file_chooser_get_file(GTK_FILE_CHOOSER(chooser));
    auto* const picture = static_cast<GdkTexture*>(g_object_get_data(G_OBJECT(chooser), "picture"));
    if (response == GTK_RESPONSE_ACCEPT && file) {
        GError* error = nullptr;
        GBytes* const png = gdk_texture_save_to_png_bytes(picture);
        gsize size = 0;
        const auto* const bytes = static_cast<const char*>(g_bytes_get_data(png, &size));
        g_file_replace_contents(file, bytes, size, nullptr, FALSE, G_FILE_CREATE_NONE, nullptr, nullptr,
                                &error);
        if (error) ShowError(widget, error->message);
        g_clear_error(&error);
        g_bytes_unref(png);
    }
    g_clear_object(&file);
    g_object_unref(chooser);
}

void Save(GtkWidget* widget, const char*, GVariant*) {
    GdkTexture* const picture = kivo_plot_get_picture(KIVO_PLOT(widget));
    if (!picture) return;
    GtkRoot* const root = gtk_widget_get_root(widget);
    GtkWindow* const window = GTK_IS_WINDOW(root) ? GTK_WINDOW(root) : nullptr;
    GtkFileChooserNative* const chooser =
        gtk_file_chooser_native_new("Save picture", window, GTK_FILE_CHOOSER_ACTION_SAVE, "_Save", "_Cancel");
    gtk_file_chooser_set_current_name(GTK_FILE_CHOOSER(chooser), "plot.png");
    g_object_set_data_full(G_OBJECT(chooser), "picture", picture, g_object_unref);
    g_signal_connect_object(chooser, "response", G_CALLBACK(OnChosen), widget, GConnectFlags());
    gtk_native_dialog_show(GTK_NATIVE_DIALOG(chooser));
}

void Reset(GtkWidget* widget, const char*, GVariant*) {
    kivo_plot_reset_view(KIVO_PLOT(widget));
}

GtkWidget* NewMenu(GtkWidget* widget) {
    GMenu* const rows = g_menu_new();
    g_menu_append(rows, "_Copy Picture", "plot.copy");
    g_menu_append(rows, "_Save Picture…", "plot.save");
    g_menu_append(rows, "_Reset View", "plot.reset-view");
    GtkWidget* const menu = gtk_popover_menu_new_from_model(G_MENU_MODEL(rows));
    g_object_unref(rows);
    gtk_popover_set_has_arrow(GTK_POPOVER(menu), FALSE);
    gtk_widget_set_halign(menu, GTK_ALIGN_START);
    gtk_widget_set_parent(menu, widget);
    return menu;
}

} // namespace

void InstallPlotActions(GtkWidgetClass* type) {
    gtk_widget_class_install_action(type, "plot.copy", nullptr, Copy);
    gtk_widget_class_install_action(type, "plot.save", nullptr, Save);
    gtk_widget_class_install_action(type, "plot.reset-view", nullptr, Reset);
}

void OpenPlotMenu(GtkWidget* widget, GtkWidget** menu, double x, double y) {
    if (!*menu) *menu = NewMenu(widget);
    const GdkRectangle place = {static_cast<int>(x), static_cast<int>(y), 1, 1};
    gtk_popover_set_pointing_to(GTK_POPOVER(*menu), &place);
    gtk_popover_popup(GTK_POPOVER(*menu));
}
