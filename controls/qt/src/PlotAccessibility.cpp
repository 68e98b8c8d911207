#include "PlotAccessibility.h"

#include "KivoPlotWidget.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {

QString DescriptionOf(const KivoPlotWidget& plot) {
    switch (plot.plotType()) {
    case KivoPlotWidget::PlotType::XY:
        return KivoPlotWidget::tr("Contours over X and Y");
    case KivoPlotWidget::PlotType::YZ:
        return KivoPlotWidget::tr("Contours over Y and Z");
    case KivoPlotWidget::PlotType::XZ:
        return KivoPlotWidget::tr("Contours over X and Z");
    default:
        return KivoPlotWidget::tr("A surface over X and Y");
    }
}

// What the host says of the widget comes first.
class AccessiblePlot : public QAccessibleWidget {
public:
    explicit AccessiblePlot(KivoPlotWidget* plot) : QAccessibleWidget(plot, QAccessible::Chart) {}

    QString text(QAccessible::Text kind) const override {
        QString said = QAccessibleWidget::text(kind);
        const auto* const plot = qobject_cast<KivoPlotWidget*>(widget());
        if (!said.isEmpty() || !plot) return said;
        if (kind == QAccessible::Name)
            return plot->title().isEmpty() ? KivoPlotWidget::tr("Plot") : plot->title();
        return kind == QAccessible::Description ? DescriptionOf(*plot) : said;
    }
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* const plot = qobject_cast<KivoPlotWidget*>(object);
    return plot ? new AccessiblePlot(plot) : nullptr;
}

} // namespace

void DescribePlotWidgets() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(MakeInterface);
        return true;
    }();
    static_cast<void>(isInstalled);
}
