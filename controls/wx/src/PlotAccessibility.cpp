#include "PlotAccessibility.h"

#if defined(KIVO_WX_HAS_ATK)

#include <gtk/gtk.h>

void NameForReaders(wxWindow& window, const wxString& name) {
    AtkObject* const accessible = gtk_widget_get_accessible(window.GetHandle());
    atk_object_set_role(accessible, ATK_ROLE_CHART);
    atk_object_set_name(accessible, name.utf8_str());
    atk_object_set_description(accessible, "A surface in three dimensions. The arrow keys turn it, plus and "
                                           "minus zoom, Home resets the view, 0 to 3 choose the plot.");
}

#else

void NameForReaders(wxWindow&, const wxString&) {}

#endif
