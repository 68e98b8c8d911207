// Everything about the plot that can be set, as one table: the command line, the menus, the side panel and
// the stored settings are made from it.
#pragma once

#include "PlotSettings.h"

#include <string>
#include <variant>
#include <vector>

namespace KivoViewer {

class PlotScene;

/// Where a value lies in the settings.
template <typename T>
class SettingField {
public:
    explicit SettingField(T PlotSettings::*member) : m_member(member) {}
    SettingField(int axis, T AxisSettings::*member) : m_axis(axis), m_axisMember(member) {}

    T& In(PlotSettings& settings) const {
        return m_member ? settings.*m_member : settings.axes[m_axis].*m_axisMember;
    }
    const T& In(const PlotSettings& settings) const {
        return m_member ? settings.*m_member : settings.axes[m_axis].*m_axisMember;
    }

private:
    T PlotSettings::*m_member = nullptr; ///< null for a member of an axis
    int m_axis = 0;
    T AxisSettings::*m_axisMember = nullptr;
};

/// One thing that can be set.
struct Setting {
    // The type of the value says of what kind the setting is.
    using Toggle = SettingField<bool>;
    using Count = SettingField<std::optional<unsigned>>;
    using Number = SettingField<std::optional<double>>;
    using Text = SettingField<std::optional<std::string>>;
    using Tint = SettingField<std::optional<Color>>;
    using Name = SettingField<std::optional<Choice>>;
    using Values = SettingField<std::optional<ValueRange>>;
    using Field = std::variant<Toggle, Count, Number, Text, Tint, Name, Values>;

    std::string section; ///< heading in the help and in the side panel
    std::string name;    ///< of the command line's option, without dashes
    std::string label;   ///< in menus and in the side panel
    std::string help;    ///< for the command line and as a tool tip
    Field field;
    void (PlotScene::*apply)();            ///< brings it to the plot
    bool isOfData = false;                 ///< says something about one data set, and goes with it
    unsigned least = 0;                    ///< of a count
    unsigned most = 0;                     ///< of a count
    const char* key = nullptr;             ///< that toggles it, as a key sequence
    std::vector<std::string> choices = {}; ///< names that it knows
    bool isNotNegative = false;            ///< a number from 0 on
    std::string without = {};              ///< what comes of it when a toggle that is on is switched off
};

/// All settings, those of a section together.
const std::vector<Setting>& AllSettings();
/// The setting of this name, which must exist.
const Setting& FindSetting(const std::string& name);

/// A choice in the user's language.
std::string WordForChoice(const std::string& choice);

bool IsToggle(const Setting& setting);
/// Whether the user has set it. A toggle always is.
bool IsSet(const Setting& setting, const PlotSettings& settings);
/// The value as text that SetFromText takes; empty where it is not set.
std::string TextOf(const Setting& setting, const PlotSettings& settings);
/// Sets it to what a text stands for; on and off for toggles. Throws a Failure that says what is wrong with
/// the text; the settings are then as before.
void SetFromText(const Setting& setting, const std::string& text, PlotSettings& settings);
/// Makes it what it is in another set, unset included.
void Copy(const Setting& setting, const PlotSettings& from, PlotSettings& to);

/// The settings, with what is not set taken from the others.
PlotSettings Completed(const PlotSettings& settings, const PlotSettings& others);
/// The settings without those that say something about one data set.
PlotSettings WithoutDataSettings(const PlotSettings& settings);

} // namespace KivoViewer
