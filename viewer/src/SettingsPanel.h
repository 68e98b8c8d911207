// The side panel: an editor for each setting of the table.
#pragma once

#include "AwaitedRanges.h"
#include "SettingTable.h"

#include <QCoreApplication>
#include <QWidget>

#include <functional>
#include <map>
#include <string>
#include <vector>

class QFormLayout;
class QToolButton;

namespace KivoViewer {

class PlotScene;

/// Shows the scene's settings and asks for changes of them.
class SettingsPanel : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(SettingsPanel)

public:
    /// Asked to change a setting: takes it, and all settings as they should be then. Refresh() must follow.
    using ChangeRequest = std::function<void(const Setting&, const PlotSettings&)>;
    /// Told what is wrong with an input.
    using Complaint = std::function<void(const QString&)>;

    SettingsPanel(PlotScene& scene, ChangeRequest change, Complaint complain);

    /// Shows the settings as they are now.
    void Refresh();
    /// Opens a section and gives its first editor the keys.
    /// @return the section below its heading
    QWidget* OpenSection(const std::string& name);
    /// That shows all of its labels and fields.
    int LeastWidth() const;

private:
    void AddSection(const std::string& name, bool isOpen);
    QWidget* AddRow(QFormLayout* form, const Setting& setting);
    QWidget* MakeEditor(const Setting& setting);
    QWidget* MakeToggle(const Setting& setting);
    QWidget* MakeCount(const Setting& setting);
    QWidget* MakeChoice(const Setting& setting);
    QWidget* MakeLine(const Setting& setting);
    QWidget* MakeColorButton(const Setting& setting);
    QWidget* WithResetButton(QWidget* editor, const Setting& setting);
    void Request(const Setting& setting, const std::string& text);
    void RequestReset(const Setting& setting);
    void RequestChange(const Setting& setting, const std::function<void(PlotSettings&)>& change);

    struct Section {
        QToolButton* heading;
        QWidget* rows;
        QWidget* firstEditor;
    };

    PlotScene& m_scene;
    ChangeRequest m_change;
    Complaint m_complain;
    std::map<std::string, Section> m_sections; ///< by their names
    AwaitedRanges m_awaited;
    PlotSettings m_shown; ///< all values, as the editors show them
    std::vector<std::function<void()>> m_refreshers;
};

} // namespace KivoViewer
