// The list of surfaces.
#pragma once

#include "PlotScene.h"

#include <QCoreApplication>
#include <QTreeWidget>

#include <functional>
#include <vector>

namespace KivoViewer {

/// Lists the scene's surfaces: a box shows or hides each, others its frame lines; a click on the colour, or
/// Return there, asks for another; opacities are edited; the cross, or Delete, takes a surface away.
class SurfacesPanel : public QTreeWidget {
    Q_DECLARE_TR_FUNCTIONS(SurfacesPanel)

public:
    /// What the panel asks for; Refresh() must follow but for complaints.
    struct Requests {
        std::function<void(const SurfaceEntry&)> change;
        std::function<void(int number)> remove;
        std::function<void(const QString&)> complain;
    };

    SurfacesPanel(PlotScene& scene, Requests requests);

    /// Lists what the scene has now.
    void Refresh();

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddItem(const SurfaceEntry& surface);
    void TakeOver(const QTreeWidgetItem& item);
    void Click(QTreeWidgetItem* item, int column);
    void ChooseColor(const QTreeWidgetItem& item);
    SurfaceEntry& SurfaceOf(const QTreeWidgetItem& item);
    void Later(std::function<void()> request);

    PlotScene& m_scene;
    Requests m_requests;
    std::vector<SurfaceEntry> m_surfaces; ///< as the items, in their order
};

} // namespace KivoViewer
