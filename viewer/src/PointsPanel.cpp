#include "PointsPanel.h"

#include "Background.h"
#include "ListPanel.h"

#include <QColorDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

#include <utility>

namespace KivoViewer {

namespace {

constexpr int kindColumn = firstOwnColumn;

} // namespace

PointsPanel::PointsPanel(PlotScene& scene, std::function<void()> changed)
    : m_scene(scene), m_changed(std::move(changed)) {
    setHeaderLabels({tr("Name"), tr("Colour"), tr("Kind")});
    setRootIsDecorated(false);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    setMinimumHeight(listHeight);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) { TakeOver(*item); });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == colorColumn) ChooseColor(*item);
    });
}

void PointsPanel::Refresh() {
    const QSignalBlocker blocker(this);
    clear();
    m_sets = m_scene.PointSets();
    for (const PointSet& set : m_sets)
        AddItem(set);
    resizeColumnToContents(colorColumn);
    resizeColumnToContents(kindColumn);
}

void PointsPanel::AddItem(const PointSet& set) {
    const bool isCurve = set.kind == PointSet::Kind::curve;
    auto* const item = new QTreeWidgetItem(this);
    item->setText(nameColumn, QString::fromStdString(set.name));
    item->setToolTip(
        nameColumn,
        tr("Click the box to show or hide the points, twice the name to change it; Delete takes them away"));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsUserCheckable);
    item->setCheckState(nameColumn, set.isShown ? Qt::Checked : Qt::Unchecked);
    item->setBackground(colorColumn, ToQt(set.color));
    item->setToolTip(colorColumn, tr("Click to choose another colour"));
    item->setText(kindColumn, isCurve ? tr("Curve") : tr("Points"));
}

bool PointsPanel::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isBox = index.column() == nameColumn; // the name, and the box before it
    return isBox && QTreeWidget::edit(index, trigger, event);
}

void PointsPanel::keyPressEvent(QKeyEvent* event) {
    const QTreeWidgetItem* const item = currentItem();
    if (!item || event->key() != Qt::Key_Delete) return QTreeWidget::keyPressEvent(event);
    if (IsWaitingForBackground()) return;
    const PointSet set = SetOf(*item);
    m_scene.RemovePoints(set.kind, set.index);
    Refresh();
    m_changed();
}

PointSet& PointsPanel::SetOf(const QTreeWidgetItem& item) {
    return m_sets[static_cast<std::size_t>(indexFromItem(&item).row())];
}

void PointsPanel::TakeOver(const QTreeWidgetItem& item) {
    if (IsWaitingForBackground()) return; // the scene is another thread's
    PointSet& set = SetOf(item);
    set.name = item.text(nameColumn).toStdString();
    set.isShown = item.checkState(nameColumn) == Qt::Checked;
    m_scene.ChangePoints(set);
    m_changed();
}

void PointsPanel::ChooseColor(const QTreeWidgetItem& item) {
    PointSet set = SetOf(item); // the list may be made anew while the dialog is open
    const QColor color =
        QColorDialog::getColor(ToQt(set.color), this, tr("Colour of %1").arg(item.text(nameColumn)));
    if (!color.isValid() || IsWaitingForBackground()) return;
    set.color = ParseColor(color.name().toStdString());
    m_scene.ChangePoints(set);
    Refresh();
    m_changed();
}

} // namespace KivoViewer
