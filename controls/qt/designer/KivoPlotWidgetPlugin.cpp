#include "KivoPlotWidgetPlugin.h"

#include <KivoPlotWidget.h>

#include <QIcon>

QString KivoPlotWidgetPlugin::name() const {
    return QStringLiteral("KivoPlotWidget");
}

QString KivoPlotWidgetPlugin::group() const {
    return tr("Display Widgets");
}

QString KivoPlotWidgetPlugin::toolTip() const {
    return tr("A surface z = f(x, y)");
}

QString KivoPlotWidgetPlugin::whatsThis() const {
    return toolTip();
}

QString KivoPlotWidgetPlugin::includeFile() const {
    return QStringLiteral("KivoPlotWidget.h");
}

QString KivoPlotWidgetPlugin::domXml() const {
    return QStringLiteral("<ui language=\"c++\"><widget class=\"KivoPlotWidget\" name=\"plot\"/></ui>");
}

QIcon KivoPlotWidgetPlugin::icon() const {
    return {};
}

bool KivoPlotWidgetPlugin::isContainer() const {
    return false;
}

QWidget* KivoPlotWidgetPlugin::createWidget(QWidget* parent) {
    return new KivoPlotWidget(parent);
}
