// The list of measure groups and curves.
#pragma once

#include "PlotScene.h"

#include <QCoreApplication>
#include <QTreeWidget>

#include <functional>

namespace KivoViewer {

/// Lists the scene's points: a click on the box shows or hides them, one on the colour chooses another, and
/// the name can be edited; Delete takes them away.
class PointsPanel : public QTreeWidget {
    Q_DECLARE_TR_FUNCTIONS(PointsPanel)

public:
    /// @param changed  called after each change
    PointsPanel(PlotScene& scene, std::function<void()> changed);

    /// Lists what the scene has now.
    void Refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

private:
    void AddItem(const PointSet& set);
    void TakeOver(const QTreeWidgetItem& item);
    void ChooseColor(const QTreeWidgetItem& item);
    PointSet& SetOf(const QTreeWidgetItem& item);

    PlotScene& m_scene;
    std::function<void()> m_changed;
    std::vector<PointSet> m_sets; ///< as the items, in their order
};

} // namespace KivoViewer
