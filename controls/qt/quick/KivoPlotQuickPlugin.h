// The QML module Kivo for programs that are not linked with the control.
#pragma once

#include <QQmlExtensionPlugin>

class KivoPlotQuickPlugin : public QQmlExtensionPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char* uri) override;
};
