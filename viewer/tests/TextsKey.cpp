// Loaded into a program with Qt before everything else: the key F12 writes all texts of its windows to the
// standard output, one in a line, behind the name of what has it. An action's follow those of its menu. What
// is shown with its marks stands there once more as it is, as "plain", or as "rich" where marks are followed.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSpinBox>
#include <QTreeWidget>

#include <cstdio>

namespace {

void Tell(const char* kind, const QString& text) {
    for (const QString& line : text.split(QRegularExpression("<[^>]*>|&nbsp;|\n"), Qt::SkipEmptyParts))
        if (!line.trimmed().isEmpty()) std::printf("%s\t%s\n", kind, qUtf8Printable(line));
}

void TellMenu(const char* name, const QList<QAction*>& actions) {
    std::printf("menu\t\n");
    for (const QAction* const action : actions) {
        Tell(name, action->text());
        Tell("statusTip", action->statusTip());
    }
}

void TellMarks(const QString& text, bool isRich) {
    QString line = text;
    if (text.contains('<'))
        std::printf("%s\t%s\n", isRich ? "rich" : "plain", qUtf8Printable(line.replace('\n', ' ')));
}

bool IsRich(const QLabel& label) {
    return label.textFormat() == Qt::RichText ||
           (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
}

// What has not the room that it needs.
void TellCut(const QWidget& widget, const QString& text) {
    if (widget.isVisible() && widget.width() < widget.minimumSizeHint().width()) Tell("cut", text);
}

void TellWidget(const QWidget& widget) {
    if (const auto* const bar = qobject_cast<const QMenuBar*>(&widget)) TellMenu("action", bar->actions());
    if (const auto* const menu = qobject_cast<const QMenu*>(&widget)) TellMenu("action", menu->actions());
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        Tell("label", label->text());
        TellMarks(label->text(), IsRich(*label));
        TellCut(widget, label->text());
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        Tell("button", button->text());
        TellCut(widget, button->text());
    }
    if (const auto* const area = qobject_cast<const QScrollArea*>(&widget))
        if (const int lacking = area->widget()->width() - area->viewport()->width(); lacking > 0)
            Tell("cut", QString("%1 of %2 columns").arg(lacking).arg(area->widget()->width()));
    if (const auto* const box = qobject_cast<const QSpinBox*>(&widget)) Tell("suffix", box->suffix());
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < box->count(); ++i)
            Tell("choice", box->itemText(i));
    if (const auto* const tree = qobject_cast<const QTreeWidget*>(&widget)) {
        for (int i = 0; i < tree->columnCount(); ++i)
            Tell("column", tree->headerItem()->text(i));
        for (int i = 0; i < tree->topLevelItemCount() * tree->columnCount(); ++i) {
            const QTreeWidgetItem& item = *tree->topLevelItem(i / tree->columnCount());
            const QString toolTip = item.toolTip(i % tree->columnCount());
            Tell("toolTip", toolTip);
            TellMarks(toolTip, Qt::mightBeRichText(toolTip));
            TellMarks(item.text(i % tree->columnCount()), false); // as Qt's lists always do
        }
    }
    Tell("toolTip", widget.toolTip());
    TellMarks(widget.toolTip(), Qt::mightBeRichText(widget.toolTip()));
    if (widget.isWindow() || qobject_cast<const QDockWidget*>(&widget)) Tell("title", widget.windowTitle());
}

class TextsKey : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !receiver->isWindowType()) return false;
        if (static_cast<const QKeyEvent*>(event)->key() != Qt::Key_F12) return false;
        for (const QWidget* const widget : QApplication::allWidgets())
            TellWidget(*widget);
        std::printf("end\n");
        std::fflush(stdout);
        return true;
    }
};

void Install() {
    qApp->installEventFilter(new TextsKey(qApp));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(Install)
