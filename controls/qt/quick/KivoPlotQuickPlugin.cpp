#include "KivoPlotQuickPlugin.h"

#include <KivoPlotItem.h>

void KivoPlotQuickPlugin::registerTypes(const char*) {
    KivoPlotItem::registerType();
}
