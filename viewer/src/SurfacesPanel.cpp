#include "SurfacesPanel.h"

#include "Failure.h"
#include "ListPanel.h"
#include "Numbers.h"

#include <QColorDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>
#include <QTimer>

#include <utility>

namespace KivoViewer {

namespace {

constexpr int opacityColumn = firstOwnColumn, linesColumn = firstOwnColumn + 1,
              removeColumn = firstOwnColumn + 2;

Qt::CheckState ToQt(bool isOn) {
    return isOn ? Qt::Checked : Qt::Unchecked;
}

} // namespace

SurfacesPanel::SurfacesPanel(PlotScene& scene, Requests requests)
    : m_scene(scene), m_requests(std::move(requests)) {
    setHeaderLabels({tr("Name"), tr("Colour"), tr("Opacity"), tr("Lines"), QString()});
    setRootIsDecorated(false);
    setSelectionBehavior(QAbstractItemView::SelectItems); // so that Left and Right lead to the columns
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    setMinimumHeight(listHeight);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) { TakeOver(*item); });
    connect(this, &QTreeWidget::itemClicked, this, &SurfacesPanel::Click);
}

void SurfacesPanel::Refresh() {
    const QSignalBlocker blocker(this);
    const int row = currentIndex().row();
    const int column = currentColumn();
    clear();
    m_surfaces = m_scene.Surfaces();
    for (const SurfaceEntry& surface : m_surfaces)
        AddItem(surface);
    for (const int each : {int{colorColumn}, opacityColumn, linesColumn, removeColumn})
        resizeColumnToContents(each);
    if (row >= 0) setCurrentItem(topLevelItem(std::min(row, topLevelItemCount() - 1)), column);
}

void SurfacesPanel::AddItem(const SurfaceEntry& surface) {
    auto* const item = new QTreeWidgetItem(this);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
    item->setText(nameColumn, QString::fromStdString(surface.name));
    item->setToolTip(nameColumn,
                     tr("Click the box to show or hide the surface, twice the name to change it"));
    item->setCheckState(nameColumn, ToQt(surface.isShown));
    if (surface.looks.color)
        item->setBackground(colorColumn, ToQt(*surface.looks.color));
    else
        item->setText(colorColumn, tr("values"));
    item->setToolTip(colorColumn, tr("Click to colour the surface by its values, or in one colour"));
    item->setText(opacityColumn, QString::fromStdString(FormatNumber(surface.looks.opacity)));
    item->setToolTip(opacityColumn, tr("From 0 to 1: click twice to change it"));
    item->setCheckState(linesColumn, ToQt(surface.hasLines));
    item->setToolTip(linesColumn, tr("Click to show or hide the frame lines"));
    if (surface.number == 0) return; // the axes are made for it
    item->setText(removeColumn, QString::fromUtf8("✕"));
    item->setToolTip(removeColumn, tr("Click to take the surface away"));
}

// The boxes of all columns, and what has a text to be edited.
bool SurfacesPanel::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isText = index.column() == nameColumn || index.column() == opacityColumn;
    const bool isBox = index.column() == linesColumn && trigger != DoubleClicked && trigger != EditKeyPressed;
    return (isText || isBox) && QTreeWidget::edit(index, trigger, event);
}

void SurfacesPanel::keyPressEvent(QKeyEvent* event) {
    QTreeWidgetItem* const item = currentItem();
    const bool isChoice = event->key() == Qt::Key_Return || event->key() == Qt::Key_Space;
    if (item && event->key() == Qt::Key_Delete)
        Click(item, removeColumn);
    else if (item && isChoice && (currentColumn() == colorColumn || currentColumn() == removeColumn))
        Click(item, currentColumn());
    else
        QTreeWidget::keyPressEvent(event);
}

SurfaceEntry& SurfacesPanel::SurfaceOf(const QTreeWidgetItem& item) {
    return m_surfaces[static_cast<std::size_t>(indexFromItem(&item).row())];
}

// The list is made anew for a request, which its own events do not survive.
void SurfacesPanel::Later(std::function<void()> request) {
    QTimer::singleShot(0, this, std::move(request));
}

void SurfacesPanel::TakeOver(const QTreeWidgetItem& item) {
    SurfaceEntry surface = SurfaceOf(item);
    surface.name = item.text(nameColumn).toStdString();
    surface.isShown = item.checkState(nameColumn) == Qt::Checked;
    surface.hasLines = item.checkState(linesColumn) == Qt::Checked;
    const auto opacity = ParseNumber(item.text(opacityColumn).trimmed().toStdString());
    if (opacity && *opacity >= 0.0 && *opacity <= 1.0)
        surface.looks.opacity = *opacity;
    else
        m_requests.complain(
            tr("Opacity: expected a number from 0 to 1, found \"%1\"").arg(item.text(opacityColumn)));
    Later([this, surface] { m_requests.change(surface); });
}

void SurfacesPanel::Click(QTreeWidgetItem* item, int column) {
    const SurfaceEntry surface = SurfaceOf(*item);
    if (column == colorColumn) return ChooseColor(*item);
    if (column != removeColumn) return;
    if (surface.number == 0)
        m_requests.complain(tr("The first surface stays: the axes are made for it"));
    else
        Later([this, surface] { m_requests.remove(surface.number); });
}

void SurfacesPanel::ChooseColor(const QTreeWidgetItem& item) {
    SurfaceEntry surface = SurfaceOf(item);
    QMenu menu(this);
    const QAction* const byValues = menu.addAction(tr("By its &values"));
    const QAction* const inOne = menu.addAction(tr("In &one colour..."));
    const QAction* const chosen = menu.exec(viewport()->mapToGlobal(visualItemRect(&item).bottomLeft()));
    if (chosen == byValues) {
        surface.looks.color.reset();
    } else if (chosen == inOne) {
        const Color before = surface.looks.color.value_or(*UsualLooks(1).color);
        const QColor color = QColorDialog::getColor(
            ToQt(before), this, tr("Colour of %1").arg(QString::fromStdString(surface.name)));
        if (!color.isValid()) return;
        surface.looks.color = ParseColor(color.name().toStdString());
    } else {
        return;
    }
    Later([this, surface] { m_requests.change(surface); });
}

} // namespace KivoViewer
