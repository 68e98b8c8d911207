#include "ReadDialogs.h"

#include "Numbers.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace KivoViewer {

const Reading* AskForReading(QWidget* parent, const OpenQuestion& question) {
    QStringList choices;
    for (const Reading& reading : question.Readings())
        choices.append(QString::fromStdString(reading.words));
    bool isAnswered = false;
    const QString choice = QInputDialog::getItem(
        parent, "Kivo Viewer", "This file may be read in several ways:", choices, 0, false, &isAnswered);
    return isAnswered ? &question.Readings()[static_cast<std::size_t>(choices.indexOf(choice))] : nullptr;
}

bool AskForGrid(QWidget* parent, const GridQuestion& question, ReadOptions& options) {
    QDialog dialog(parent);
    dialog.setWindowTitle("Scattered points");
    auto* const form = new QFormLayout(&dialog);
    form->addRow(new QLabel(QString::number(question.Points()) + " points, of which a grid is made"));
    auto* const methods = new QComboBox;
    methods->addItems(
        {"Linear, on triangles", "Nearest point", "Mean by inverse distance"}); // as the enumeration
    form->addRow("&Method", methods);
    auto* const size = new QLineEdit(QString::fromStdString(FormatNumber(question.Cell())));
    form->addRow("&Cell size", size);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    const auto typed = [size] { return ParseNumber(size->text().toStdString()).value_or(0.0); };
    QObject::connect(size, &QLineEdit::textChanged, &dialog,
                     [buttons, typed] { buttons->button(QDialogButtonBox::Ok)->setEnabled(typed() > 0.0); });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted) return false;
    options.method = static_cast<GridMethod>(methods->currentIndex());
    options.cell = typed();
    return true;
}

} // namespace KivoViewer
