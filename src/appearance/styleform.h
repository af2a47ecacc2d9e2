// The dialog of a group of styles: samples that are pressed to change their font and colour, the group's 3D effect, and
// OK, which writes them. The four dialogs differ by their tables alone.
#pragma once

#include "settings/settings.h"

#include <QDialog>

#include <vector>

class QCheckBox;
class QGridLayout;
class SamplePanel;

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
    QString title;
    QString frame;
    QString hint;
    QLatin1StringView click; // in the error log
    QLatin1StringView save;
    IntSetting font3D;
    int effect;                    // that "3D Font Effects" stands for
    const IntSetting* strikeOut{}; // of the last sample, if it has one
    QString strikeOutCaption;
    bool alwaysItalic = false;        // whatever the samples show: kept as it has always been
    const StyleSample* all = nullptr; // a sample that stands for all others and is not written
};

class StyleForm : public QDialog
{
    Q_OBJECT

public:
    StyleForm(const StyleRules& rules, const std::vector<StyleSample>& samples, QWidget* owner = nullptr);

    void accept() override; // writes the samples' styles

private:
    SamplePanel* AddSample(const StyleSample& sample);
    void AddSamples(QGridLayout& grid);
    void AddChecks(QLayout& column);
    void ShowEffects();
    void PressSample(const StyleSample& sample, const std::vector<SamplePanel*>& changed);

    const StyleRules m_rules;
    const std::vector<StyleSample> m_samples;
    std::vector<SamplePanel*> m_panels; // of the samples, then the one for all
    int m_effect = 0;                   // 3D, as the file has it until the box is clicked
    QCheckBox* m_chkFontEffect = nullptr;
    QCheckBox* m_chkStrikeOut = nullptr;
};
