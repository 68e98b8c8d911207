#include "SettingsPanel.h"

#include "Background.h"
#include "ColorSample.h"
#include "Failure.h"
#include "Language.h"
#include "PlotScene.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>
#include <utility>

namespace KivoViewer {

namespace {

QString Words(const std::string& text) {
    return QString::fromStdString(text);
}

// Columns of colours from left to right. With a border: a light colour would be lost on the button.
QPixmap SampleOf(const std::vector<Color>& colors) {
    QPixmap sample(32, 14);
    sample.fill(Qt::white);
    QPainter painter(&sample);
    const int count = static_cast<int>(colors.size());
    for (int x = 0; x < sample.width() && count > 0; ++x) {
        const Color& color = colors[static_cast<std::size_t>(x * count / sample.width())];
        painter.fillRect(x, 0, 1, sample.height(), QColor(color.red, color.green, color.blue));
    }
    painter.setPen(Qt::darkGray);
    painter.drawRect(sample.rect().adjusted(0, 0, -1, -1));
    return sample;
}

QPixmap SampleOf(const std::string& name, const AxisSettings& axis) {
    constexpr unsigned int columns = 32;
    return SampleOf(ColorSample(name, *axis.gradientStart, *axis.gradientEnd, columns));
}

// The axis of which a setting is one end.
std::optional<int> AxisOfEnd(const Setting& setting) {
    for (int axis = 0; axis < 3; ++axis)
        for (const char* const end : {"-min", "-max"})
            if (setting.name == "xyz"[axis] + std::string(end)) return axis;
    return std::nullopt;
}

bool IsOpenAtFirst(const std::string& section) {
    return section == Translate("Settings", "Titles") || section == Translate("Settings", "Contours") ||
           section == Translate("Settings", "Lines");
}

// While it has the keys, letters choose among its names: some are the window's own for other things.
class ChoiceBox : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) return QComboBox::event(event);
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool isLetter = !key.text().isEmpty() && key.text().at(0).isPrint() &&
                              (key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::NoModifier;
        event->setAccepted(isLetter);
        return isLetter || QComboBox::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            clearFocus(); // the keys are the plot's again
        else
            QComboBox::keyPressEvent(event);
    }
};

} // namespace

SettingsPanel::SettingsPanel(PlotScene& scene, ChangeRequest change, Complaint complain)
    : m_scene(scene), m_change(std::move(change)), m_complain(std::move(complain)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setSpacing(2);
    std::string section;
    for (const Setting& setting : AllSettings()) {
        if (setting.section == section) continue;
        section = setting.section;
        AddSection(section, IsOpenAtFirst(section));
    }
    layout->addStretch();
}

void SettingsPanel::Refresh() {
    m_shown = m_scene.Effective();
    m_awaited.ShowIn(m_shown);
    for (const auto& refresh : m_refreshers)
        refresh();
}

QWidget* SettingsPanel::OpenSection(const std::string& name) {
    const Section& section = m_sections.at(name);
    section.heading->setChecked(true);
    section.firstEditor->setFocus(Qt::ShortcutFocusReason);
    return section.rows;
}

// Labels are as long as the language has them.
int SettingsPanel::LeastWidth() const {
    int width = 0;
    for (const auto& [name, section] : m_sections)
        width = std::max(width, section.rows->minimumSizeHint().width());
    const QMargins margins = layout()->contentsMargins();
    return width + margins.left() + margins.right();
}

// A heading that opens and closes what is below it.
void SettingsPanel::AddSection(const std::string& name, bool isOpen) {
    auto* const heading = new QToolButton(this);
    heading->setText(Words(name));
    heading->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    heading->setAutoRaise(true);
    heading->setCheckable(true);
    heading->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* const rows = new QWidget(this);
    auto* const form = new QFormLayout(rows);
    form->setContentsMargins(16, 0, 0, 6);
    form->setVerticalSpacing(3);
    QWidget* firstEditor = nullptr;
    for (const Setting& setting : AllSettings()) {
        if (setting.section != name) continue;
        QWidget* const editor = AddRow(form, setting);
        if (!firstEditor) firstEditor = editor;
    }
    m_sections[name] = {heading, rows, firstEditor};
    const auto open = [heading, rows](bool on) {
        heading->setArrowType(on ? Qt::DownArrow : Qt::RightArrow);
        rows->setVisible(on);
    };
    connect(heading, &QToolButton::toggled, rows, open);
    heading->setChecked(isOpen);
    open(isOpen);
    layout()->addWidget(heading);
    layout()->addWidget(rows);
}

QWidget* SettingsPanel::AddRow(QFormLayout* form, const Setting& setting) {
    QWidget* const editor = MakeEditor(setting);
    editor->setObjectName(Words(setting.name));
    editor->setToolTip(Words(setting.help));
    if (IsToggle(setting))
        form->addRow(editor);
    else
        form->addRow(Words(setting.label), WithResetButton(editor, setting));
    return editor;
}

QWidget* SettingsPanel::MakeEditor(const Setting& setting) {
    if (IsToggle(setting)) return MakeToggle(setting);
    if (std::holds_alternative<Setting::Count>(setting.field)) return MakeCount(setting);
    if (std::holds_alternative<Setting::Tint>(setting.field)) return MakeColorButton(setting);
    if (!setting.choices.empty()) return MakeChoice(setting);
    return MakeLine(setting);
}

QWidget* SettingsPanel::MakeToggle(const Setting& setting) {
    auto* const box = new QCheckBox(Words(setting.label), this);
    connect(box, &QCheckBox::toggled, this,
            [this, &setting](bool on) { Request(setting, on ? "on" : "off"); });
    m_refreshers.emplace_back([this, box, &setting] {
        const QSignalBlocker blocker(box);
        box->setChecked(TextOf(setting, m_shown) == "on");
    });
    return box;
}

QWidget* SettingsPanel::MakeCount(const Setting& setting) {
    auto* const box = new QSpinBox(this);
    box->setRange(static_cast<int>(setting.least), static_cast<int>(setting.most));
    box->setKeyboardTracking(false);
    connect(box, &QSpinBox::valueChanged, this,
            [this, &setting](int value) { Request(setting, std::to_string(value)); });
    connect(box, &QSpinBox::editingFinished, box, &QWidget::clearFocus); // the keys are the plot's again
    m_refreshers.emplace_back([this, box, &setting] {
        const QSignalBlocker blocker(box);
        box->setValue(QString::fromStdString(TextOf(setting, m_shown)).toInt());
    });
    return box;
}

QWidget* SettingsPanel::MakeChoice(const Setting& setting) {
    auto* const box = new ChoiceBox(this);
    const bool isOfColors = setting.name == "colors";
    for (const std::string& name : setting.choices)
        box->addItem(Words(WordForChoice(name)), Words(name));
    const QPixmap none = SampleOf(std::vector<Color>());
    if (isOfColors) box->setIconSize(none.size());
    for (int i = 0; i < box->count() && isOfColors; ++i)
        box->setItemIcon(i, none); // as wide as it will be
    connect(box, &QComboBox::activated, this,
            [this, box, &setting] { Request(setting, box->currentData().toString().toStdString()); });
    m_refreshers.emplace_back([this, box, isOfColors, &setting] {
        const QSignalBlocker blocker(box);
        for (int i = 0; i < box->count() && isOfColors; ++i)
            box->setItemIcon(i, SampleOf(box->itemData(i).toString().toStdString(), m_shown.axes[2]));
        box->setCurrentIndex(box->findData(Words(TextOf(setting, m_shown))));
    });
    return box;
}

QWidget* SettingsPanel::MakeLine(const Setting& setting) {
    auto* const line = new QLineEdit(this);
    connect(line, &QLineEdit::editingFinished, this, [this, line, &setting] {
        const std::string text = line->text().toStdString();
        if (text != TextOf(setting, m_shown)) Request(setting, text);
    });
    connect(line, &QLineEdit::returnPressed, line, &QWidget::clearFocus); // the keys are the plot's again
    m_refreshers.emplace_back([this, line, &setting] {
        line->setText(Words(TextOf(setting, m_shown)));
        line->setCursorPosition(0);
    });
    return line;
}

QWidget* SettingsPanel::MakeColorButton(const Setting& setting) {
    const QPixmap none = SampleOf(std::vector<Color>());
    auto* const button = new QPushButton(none, "#000000", this); // as wide as it will be
    button->setIconSize(none.size());
    connect(button, &QPushButton::clicked, this, [this, &setting] {
        const QColor before(Words(TextOf(setting, m_shown)));
        const QColor color = QColorDialog::getColor(before, this, Words(setting.help));
        if (color.isValid()) Request(setting, color.name().toStdString());
    });
    m_refreshers.emplace_back([this, button, &setting] {
        button->setIcon(SampleOf({ParseColor(TextOf(setting, m_shown))}));
        button->setText(Words(TextOf(setting, m_shown)));
        const bool isOfGradient = setting.name.find("gradient") != std::string::npos;
        button->setEnabled(!isOfGradient || m_shown.colors->name == "gradient"); // no table has ends
    });
    return button;
}

// Beside the editor a button that takes back what the user has set.
QWidget* SettingsPanel::WithResetButton(QWidget* editor, const Setting& setting) {
    auto* const pair = new QWidget(this);
    auto* const layout = new QHBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    auto* const reset = new QToolButton(pair);
    reset->setText(QString::fromUtf8("↺"));
    reset->setToolTip(tr("Back to what it was by itself"));
    reset->setAutoRaise(true);
    connect(reset, &QToolButton::clicked, this, [this, &setting] { RequestReset(setting); });
    m_refreshers.emplace_back(
        [this, reset, &setting] { reset->setEnabled(IsSet(setting, m_scene.Settings())); });
    layout->addWidget(editor, 1);
    layout->addWidget(reset);
    return pair;
}

void SettingsPanel::Request(const Setting& setting, const std::string& text) {
    try {
        RequestChange(setting, [&](PlotSettings& wanted) { SetFromText(setting, text, wanted); });
    } catch (const Failure& failure) {
        m_complain(Words(setting.help + ": " + failure.what()));
        Refresh();
    }
}

void SettingsPanel::RequestReset(const Setting& setting) {
    RequestChange(setting, [&](PlotSettings& wanted) { Copy(setting, PlotSettings(), wanted); });
}

// The ends of a range may be given one after the other, whichever comes first.
void SettingsPanel::RequestChange(const Setting& setting, const std::function<void(PlotSettings&)>& change) {
    if (IsWaitingForBackground()) return; // the scene is another thread's
    const std::optional<int> axis = AxisOfEnd(setting);
    PlotSettings wanted = m_scene.Settings();
    if (axis) m_awaited.AddTo(*axis, wanted);
    change(wanted);
    if (!axis || m_awaited.Take(*axis, wanted, m_scene)) return m_change(setting, wanted);
    Refresh();
    m_complain(tr("The %1 axis follows as soon as its other end fits").arg(QChar("XYZ"[*axis])));
}

} // namespace KivoViewer
