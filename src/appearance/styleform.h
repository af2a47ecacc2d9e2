// The dialog of a group of styles. A click on a sample changes its font and colour; the check box changes the group's
// 3D effect; OK writes both. The four dialogs differ only in their tables.
#pragma once

#include "settings/settings.h"

#include <QDialog>

#include <optional>
#include <vector>

class QCheckBox;
class QGridLayout;
class SSPanel;

struct StyleSample
{
    QString name;
    QString label; // beside the sample; may be empty
    QString caption;
    StyleDefaults defaults; // of this dialog
    StyleDefaults drawn;    // the calendar's own, where a setting is missing
    QColor paper;
    int alignment;
    QColor frame{};
};

struct StyleRules
{
    const char* name;
    QLatin1StringView title;
    QLatin1StringView frame;
    QLatin1StringView hint;
    QLatin1StringView click; // in the error log
    QLatin1StringView save;
    IntSetting font3D;
    int effect;                    // value of a ticked "3D Font Effects"
    const IntSetting* strikeOut{}; // of the last sample, or null
    QLatin1StringView strikeOutCaption{};
    bool alwaysItalic = false;     // writes italic whatever the samples show, as older versions do
    bool lastStandsForAll = false; // the last sample changes all others and is not written itself
};

class StyleForm : public QDialog
{
    Q_OBJECT

public:
    // The rules must outlive the dialog.
    StyleForm(const StyleRules& rules, const std::vector<StyleSample>& samples, QWidget* owner = nullptr);

    void accept() override; // writes the styles

private:
    std::size_t Written() const { return m_samples.size() - (m_rules.lastStandsForAll ? 1 : 0); }
    SSPanel* MakeSample(std::size_t number);
    void AddSamples(QGridLayout& grid);
    void AddChecks(QLayout& column);
    void ShowEffects();
    void PressSample(std::size_t number);
    void ShowDefaults(); // what a calendar without settings shows, but the week in italics, as Ok stores it

    const StyleRules& m_rules;
    const std::vector<StyleSample> m_samples;
    std::vector<SSPanel*> m_panels; // by sample
    int m_effect = 0;               // 3D: the stored value until the box is clicked
    QCheckBox* m_chkFontEffect = nullptr;
    QCheckBox* m_chkStrikeOut = nullptr;
};

// Shows the font dialog for the style; empty if it was cancelled.
std::optional<PanelStyle> ChooseStyle(QWidget* owner, const PanelStyle& style);
