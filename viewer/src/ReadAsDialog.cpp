#include "ReadAsDialog.h"

#include "Failure.h"
#include "Numbers.h"
#include "Preview.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace KivoViewer {

namespace {

constexpr int mostBands = 1000000;

Preview Looked(const Reading& reading, bool isGrid) {
    try {
        return PreviewOf(reading.path, reading.options, isGrid);
    } catch (const Failure& failure) {
        Preview preview;
        preview.words = failure.what();
        return preview;
    }
}

QString HeadOf(const Preview& preview, int column) {
    QString head = QString::fromStdString(preview.names[static_cast<std::size_t>(column)]);
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (preview.columns[axis] == column) head += QString(" → ") + "xyz"[axis];
    return head;
}

void Fill(QTableWidget& table, const Preview& preview) {
    std::size_t width = preview.names.size();
    for (const std::vector<std::string>& row : preview.rows)
        width = std::max(width, row.size());
    table.setRowCount(static_cast<int>(preview.rows.size()));
    table.setColumnCount(static_cast<int>(std::min<std::size_t>(width, 30)));
    table.horizontalHeader()->setVisible(preview.isTable);
    for (int column = 0; column < table.columnCount(); ++column) {
        const bool isNamed = static_cast<std::size_t>(column) < preview.names.size();
        table.setHorizontalHeaderItem(column, new QTableWidgetItem(isNamed ? HeadOf(preview, column) : ""));
    }
    for (int row = 0; row < table.rowCount(); ++row) {
        const std::vector<std::string>& fields = preview.rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < std::min(table.columnCount(), static_cast<int>(fields.size()));
             ++column)
            table.setItem(
                row, column,
                new QTableWidgetItem(QString::fromStdString(fields[static_cast<std::size_t>(column)])));
    }
    table.resizeColumnsToContents();
}

class PreviewTable : public QWidget {
public:
    PreviewTable() : m_table(new QTableWidget), m_words(new QLabel) {
        auto* const layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_table);
        layout->addWidget(m_words);
        m_table->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_table->setSelectionMode(QAbstractItemView::NoSelection);
        m_table->setFocusPolicy(Qt::NoFocus);
        m_table->setTabKeyNavigation(false);
        m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
        m_table->setMinimumSize(480, 180);
        m_words->setWordWrap(true);
        m_words->setTextFormat(Qt::PlainText);
    }

    void Show(const Preview& preview) {
        Fill(*m_table, preview);
        m_table->setVisible(!preview.rows.empty());
        m_words->setText(QString::fromStdString(OneLine(preview.words)));
    }

private:
    QTableWidget* m_table;
    QLabel* m_words;
};

// What the controls of the dialog say. Those that a file of its kind has no use for are not there.
class ReadAsDialog : public QDialog {
    Q_DECLARE_TR_FUNCTIONS(ReadAsDialog)

public:
    ReadAsDialog(QWidget* parent, Reading reading, bool isGrid)
        : QDialog(parent), m_reading(std::move(reading)), m_isGrid(isGrid) {
        setWindowTitle(tr("Read as"));
        const Preview preview = Looked(m_reading, isGrid);
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(m_preview = new PreviewTable);
        auto* const form = new QFormLayout;
        layout->addLayout(form);
        if (preview.isTable) AddTable(form, preview);
        if (preview.isTable && isGrid) AddGridding(form);
        if (!preview.isTable) AddBand(form);
        if (isGrid) AddRegion(form);
        m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        layout->addWidget(m_buttons);
        connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        Refresh();
    }

    const Reading& Answer() const { return m_reading; }

private:
    void AddTable(QFormLayout* form, const Preview& preview) {
        if (m_isGrid) {
            m_kind = AddChoice(form, tr("&Table of"),
                               {tr("What it seems to be"), tr("Points"), tr("Values, a matrix")});
            if (!m_reading.options.columns.empty())
                m_kind->setCurrentIndex(m_reading.options.IsMatrix() ? 2 : 1);
        }
        const QString labels[] = {tr("Column of &x"), tr("Column of &y"), tr("Column of &z")};
        QStringList names(tr("What it seems to be"));
        for (const std::string& name : preview.names)
            names.append(QString::fromStdString(name));
        if (m_isGrid) names.removeFirst();
        for (int axis = 0; axis < 3; ++axis) {
            m_columns[axis] = AddChoice(form, labels[axis], names);
            const int column = preview.columns[static_cast<std::size_t>(axis)];
            const int first = m_isGrid ? 0 : 1;
            const bool isTold = m_reading.options.columns.size() == 3;
            if (m_isGrid || isTold)
                m_columns[axis]->setCurrentIndex(
                    std::min((column < 0 ? axis : column) + first, static_cast<int>(names.size()) - 1));
        }
        m_mark = AddChoice(form, tr("&Decimal mark"), {tr("What it seems to be"), tr("Point"), tr("Comma")});
        m_mark->setCurrentIndex(m_reading.options.decimalMark == '.'   ? 1
                                : m_reading.options.decimalMark == ',' ? 2
                                                                       : 0);
    }

    void AddGridding(QFormLayout* form) {
        m_method = AddChoice(form, tr("&Grid of scattered points"),
                             {tr("Asked for"), tr("Linear, on triangles"), tr("Nearest point"),
                              tr("Mean by inverse distance")});
        if (m_reading.options.method)
            m_method->setCurrentIndex(static_cast<int>(*m_reading.options.method) + 1);
        m_cell = AddNumber(form, tr("C&ell size"), m_reading.options.cell);
        m_radius = AddNumber(form, tr("&Reach of a point"), m_reading.options.radius);
    }

    void AddBand(QFormLayout* form) {
        m_band = new QSpinBox;
        m_band->setRange(0, mostBands);
        m_band->setSpecialValueText(tr("Asked for"));
        m_band->setValue(m_reading.options.band);
        form->addRow(tr("&Band"), m_band);
        connect(m_band, &QSpinBox::valueChanged, this, [this] { Refresh(); });
    }

    void AddRegion(QFormLayout* form) {
        m_region = AddText(form, tr("Re&gion"), "x0:x1:y0:y1");
        if (m_reading.options.region)
            m_region->setText(QString::fromStdString(TextOf(*m_reading.options.region)));
    }

    QComboBox* AddChoice(QFormLayout* form, const QString& label, const QStringList& choices) {
        auto* const box = new QComboBox;
        box->addItems(choices);
        form->addRow(label, box);
        connect(box, &QComboBox::currentIndexChanged, this, [this] { Refresh(); });
        return box;
    }

    QLineEdit* AddText(QFormLayout* form, const QString& label, const QString& shape) {
        auto* const line = new QLineEdit;
        line->setPlaceholderText(shape);
        form->addRow(label, line);
        connect(line, &QLineEdit::textChanged, this, [this] { Refresh(); });
        return line;
    }

    QLineEdit* AddNumber(QFormLayout* form, const QString& label, double number) {
        QLineEdit* const line = AddText(form, label, tr("From the density of the points"));
        if (number > 0.0) line->setText(QString::fromStdString(FormatNumber(number)));
        return line;
    }

    // Reads the controls, and shows what follows from them.
    void Refresh() {
        if (!m_buttons) return; // not all are there yet
        ReadOptions options;
        const bool isRight = ReadTable(options) && ReadGridding(options) && ReadRegion(options);
        if (m_band) options.band = m_band->value();
        options.asks = m_reading.options.asks;
        const bool hasPoints = !m_kind || m_kind->currentIndex() == 1;
        for (QComboBox* const column : m_columns)
            if (column) column->setEnabled(hasPoints);
        m_buttons->button(QDialogButtonBox::Ok)->setEnabled(isRight);
        if (!isRight) return;
        m_reading.options = options;
        m_preview->Show(Looked(m_reading, m_isGrid));
    }

    bool ReadTable(ReadOptions& options) const {
        if (!m_mark) return true;
        constexpr char marks[] = {0, '.', ','};
        options.decimalMark = marks[m_mark->currentIndex()];
        if (m_kind && m_kind->currentIndex() == 2) options.columns = {"all"};
        if (m_kind && m_kind->currentIndex() != 1) return true;
        const int first = m_isGrid ? 0 : 1;
        const bool areNamed = std::all_of(std::begin(m_columns), std::end(m_columns),
                                          [first](QComboBox* box) { return box->currentIndex() >= first; });
        for (const QComboBox* const column : m_columns)
            if (areNamed) options.columns.push_back(std::to_string(column->currentIndex() - first + 1));
        return true;
    }

    bool ReadGridding(ReadOptions& options) const {
        if (!m_method) return true;
        if (m_method->currentIndex() > 0)
            options.method = static_cast<GridMethod>(m_method->currentIndex() - 1);
        return ReadNumber(*m_cell, options.cell) && ReadNumber(*m_radius, options.radius);
    }

    static bool ReadNumber(const QLineEdit& line, double& number) {
        if (line.text().trimmed().isEmpty()) return true;
        number = ParseNumber(line.text().trimmed().toStdString()).value_or(0.0);
        return number > 0.0 && std::isfinite(number);
    }

    bool ReadRegion(ReadOptions& options) const {
        if (!m_region || m_region->text().trimmed().isEmpty()) return true;
        try {
            options.region = ParseRegion(m_region->text().trimmed().toStdString());
            return true;
        } catch (const Failure&) {
            return false;
        }
    }

    Reading m_reading;
    bool m_isGrid;
    PreviewTable* m_preview = nullptr; // as all widgets, owned by the dialog
    QComboBox* m_kind = nullptr;
    QComboBox* m_columns[3] = {};
    QComboBox* m_mark = nullptr;
    QComboBox* m_method = nullptr;
    QLineEdit* m_cell = nullptr;
    QLineEdit* m_radius = nullptr;
    QSpinBox* m_band = nullptr;
    QLineEdit* m_region = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

} // namespace

QWidget* MakePreview(const Reading& reading, bool isGrid) {
    auto* const preview = new PreviewTable;
    preview->Show(Looked(reading, isGrid));
    return preview;
}

bool IsTable(const Reading& reading, bool isGrid) {
    return Looked(reading, isGrid).isTable;
}

bool AskHowToRead(QWidget* parent, Reading& reading, bool isGrid) {
    ReadAsDialog dialog(parent, reading, isGrid);
    if (dialog.exec() != QDialog::Accepted) return false;
    reading = dialog.Answer();
    return true;
}

} // namespace KivoViewer
