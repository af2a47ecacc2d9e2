// The dialog of a group of styles: samples that are pressed to change their font and colour, the group's 3D effect, and
// OK, which writes them. The four dialogs differ by their tables alone.
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
    QString label; // beside the sample, empty for none
    QString caption;
    StyleDefaults defaults; // of this dialog, which are not those of the drawing
    QColor paper;
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
    int effect;                    // that "3D Font Effects" stands for
    const IntSetting* strikeOut{}; // of the last sample, if it has one
    QLatin1StringView strikeOutCaption{};
    bool alwaysItalic = false;     // whatever the samples show: kept as it has always been
    bool lastStandsForAll = false; // the last sample changes all others and is not written
};

class StyleForm : public QDialog
{
    Q_OBJECT

public:
    // The rules stay as long as the dialog.
    StyleForm(const StyleRules& rules, const std::vector<StyleSample>& samples, QWidget* owner = nullptr);

    void accept() override; // writes the samples' styles

private:
    std::size_t Written() const { return m_samples.size() - (m_rules.lastStandsForAll ? 1 : 0); }
    SSPanel* MakeSample(std::size_t number);
    void AddSamples(QGridLayout& grid);
    void AddChecks(QLayout& column);
    void ShowEffects();
    void PressSample(std::size_t number);

    const StyleRules& m_rules;
    const std::vector<StyleSample> m_samples;
    std::vector<SSPanel*> m_panels; // of the samples
    int m_effect = 0;               // 3D, as the file has it until the box is clicked
    QCheckBox* m_chkFontEffect = nullptr;
    QCheckBox* m_chkStrikeOut = nullptr;
};

// The font dialog, beginning with the given style; empty if it was cancelled.
std::optional<PanelStyle> ChooseStyle(QWidget* owner, const PanelStyle& style);
