#include "ReadDialogs.h"

#include "Numbers.h"
#include "ReadAsDialog.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace KivoViewer {

namespace {

// The answers as a list, beside what the first lines are by the one that is chosen.
class QuestionDialog : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(ReadDialogs)

public:
    QuestionDialog(QWidget* parent, const OpenQuestion& question, bool isGrid) : QDialog(parent) {
        setWindowTitle("Kivo Viewer");
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(new QLabel(tr("This file may be read in several ways:")));
        layout->addWidget(m_answers = new QListWidget);
        auto* const previews = new QStackedWidget;
        for (const Reading& reading : question.Readings()) {
            m_answers->addItem(QString::fromStdString(reading.words));
            if (previews->count() < mostPreviews) previews->addWidget(MakePreview(reading, isGrid));
        }
        const bool hasTexts = previews->count() == m_answers->count();
        previews->setVisible(hasTexts);
        layout->addWidget(previews);
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        layout->addWidget(buttons);
        QPushButton* const others = buttons->addButton(tr("&Read as..."), QDialogButtonBox::ActionRole);
        connect(others, &QPushButton::clicked, this, [this] { done(otherwise); });
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(m_answers, &QListWidget::itemActivated, this, &QDialog::accept);
        connect(m_answers, &QListWidget::currentRowChanged, previews, &QStackedWidget::setCurrentIndex);
        const int mostRows = 12, rows = std::min(m_answers->count(), mostRows);
        m_answers->setFixedHeight(rows * m_answers->sizeHintForRow(0) + 2 * m_answers->frameWidth());
        m_answers->setCurrentRow(0);
        m_answers->setFocus();
    }

    static constexpr int otherwise = 2; // result, beside those of Qt

    std::size_t Answer() const { return static_cast<std::size_t>(m_answers->currentRow()); }

private:
    static constexpr int mostPreviews = 8; // of more bands and variables none is a text

    QListWidget* m_answers;
};

} // namespace

std::optional<Reading> AskForReading(QWidget* parent, const OpenQuestion& question, bool isGrid) {
    QuestionDialog dialog(parent, question, isGrid);
    const int result = dialog.exec();
    if (result == QDialog::Rejected) return std::nullopt;
    Reading reading = question.Readings()[dialog.Answer()];
    if (result == QuestionDialog::otherwise && !AskHowToRead(parent, reading, isGrid)) return std::nullopt;
    return reading;
}

bool TellAndAskAgain(QWidget* parent, const Failure& failure, Reading& reading, bool isGrid) {
    QMessageBox message(QMessageBox::Warning, "Kivo Viewer", QString::fromStdString(OneLine(failure.what())),
                        QMessageBox::Ok, parent);
    QPushButton* const again =
        IsTable(reading, isGrid)
            ? message.addButton(QCoreApplication::translate("ReadDialogs", "&Read as..."),
                                QMessageBox::ActionRole)
            : nullptr;
    message.setEscapeButton(QMessageBox::Ok);
    message.setTextFormat(Qt::PlainText); // of names and fields of files
    message.exec();
    return again && message.clickedButton() == again && AskHowToRead(parent, reading, isGrid);
}

bool AskForGrid(QWidget* parent, const GridQuestion& question, ReadOptions& options) {
    QDialog dialog(parent);
    dialog.setWindowTitle(QCoreApplication::translate("ReadDialogs", "Scattered points"));
    auto* const form = new QFormLayout(&dialog);
    const int count = static_cast<int>(std::min<std::size_t>(question.Points(), 1000000000));
    form->addRow(new QLabel(
        QCoreApplication::translate("ReadDialogs", "%n points, of which a grid is made", nullptr, count)));
    auto* const methods = new QComboBox;
    methods->addItems(
        {QCoreApplication::translate("ReadDialogs", "Linear, on triangles"),
         QCoreApplication::translate("ReadDialogs", "Nearest point"),
         QCoreApplication::translate("ReadDialogs", "Mean by inverse distance")}); // as the enumeration
    form->addRow(QCoreApplication::translate("ReadDialogs", "&Method"), methods);
    auto* const size = new QLineEdit(QString::fromStdString(FormatNumber(question.Cell())));
    form->addRow(QCoreApplication::translate("ReadDialogs", "&Cell size"), size);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    const auto typed = [size] {
        const double number = ParseNumber(size->text().toStdString()).value_or(0.0);
        return std::isfinite(number) ? number : 0.0;
    };
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
