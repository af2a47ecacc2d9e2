#include "appearance/styleform.h"

#include "appearance/panelstyle.h"
#include "appearance/samplepanel.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/fontdialog.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>

namespace {
constexpr QSize SmallestSample(88, 72);
}

StyleForm::StyleForm(const StyleRules& rules, const std::vector<StyleSample>& samples, QWidget* owner)
    : QDialog(owner), m_rules(rules), m_samples(samples)
{
    setObjectName(QString::fromLatin1(m_rules.name));
    setWindowTitle(m_rules.title);
    auto* column = DialogColumn(*this);
    column->addWidget(new QLabel(m_rules.hint));
    auto* frame = new QGroupBox(m_rules.frame);
    auto* grid = new QGridLayout(frame);
    AddSamples(*grid);
    column->addWidget(frame);
    AddChecks(*column);
    column->addWidget(MakeOkCancel(*this, u"btnSave"_s));
    ShowEffects();
    CenterOnScreen(*this);
}

void StyleForm::AddSamples(QGridLayout& grid)
{
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        const int column = static_cast<int>(i);
        grid.addWidget(AddSample(m_samples[i]), 0, column);
        if (!m_samples[i].label.isEmpty()) grid.addWidget(new QLabel(m_samples[i].label), 1, column, Qt::AlignHCenter);
    }
    // The one that stands for all others is as wide as they are together.
    if (m_rules.all) grid.addWidget(AddSample(*m_rules.all), 1, 0, 1, -1);
}

SamplePanel* StyleForm::AddSample(const StyleSample& sample)
{
    auto* panel = new SamplePanel;
    panel->setObjectName(sample.name);
    panel->setMinimumSize(SmallestSample);
    panel->SetPaper(sample.paper);
    panel->SetCaptionAlignment(SSPanel::CenterMiddle);
    panel->SetCaption(sample.caption);
    panel->setAccessibleName(sample.label.isEmpty() ? sample.caption : sample.label);
    ApplyStyle(*panel, ReadStyle(sample.defaults));
    m_panels.push_back(panel);
    const bool isAll = &sample == m_rules.all;
    connect(panel, &SSPanel::Click, this, Guarded(m_rules.click, [this, &sample, panel, isAll] {
                PressSample(sample, isAll ? m_panels : std::vector<SamplePanel*>{panel});
            }));
    return panel;
}

void StyleForm::AddChecks(QLayout& column)
{
    const auto add = [&](const char* name, const QString& caption, bool checked) {
        auto* check = Named(new QCheckBox(caption), name);
        check->setChecked(checked);
        column.addWidget(check);
        return check;
    };
    m_effect = Read(m_rules.font3D);
    m_chkFontEffect = add("chkFontEffect", u"3D Font Effects"_s, m_effect != 0);
    connect(m_chkFontEffect, &QCheckBox::toggled, this, [this](bool checked) {
        m_effect = checked ? m_rules.effect : 0;
        ShowEffects();
    });
    if (!m_rules.strikeOut) return;
    m_chkStrikeOut = add("chkStrikeOut", m_rules.strikeOutCaption, Read(*m_rules.strikeOut) != 0);
    connect(m_chkStrikeOut, &QCheckBox::toggled, this, &StyleForm::ShowEffects);
}

void StyleForm::ShowEffects()
{
    for (SamplePanel* panel : m_panels)
        panel->SetFont3D(m_effect);
    if (!m_chkStrikeOut) return;
    QFont font = m_panels.back()->CaptionFont();
    font.setStrikeOut(m_chkStrikeOut->isChecked());
    m_panels.back()->SetCaptionFont(font);
}

// The font dialog begins with what the file says, not with what the sample shows.
void StyleForm::PressSample(const StyleSample& sample, const std::vector<SamplePanel*>& changed)
{
    std::optional<PanelStyle> chosen = ChooseStyle(this, ReadStyle(sample.defaults));
    if (!chosen) return;
    for (SamplePanel* panel : changed)
        ApplyStyle(*panel, *chosen);
    ShowEffects();
}

void StyleForm::accept()
{
    const ErrorTail tail(m_rules.save);
    tail([&] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        for (std::size_t i = 0; i < m_samples.size(); ++i) {
            PanelStyle style = StyleOf(*m_panels[i]);
            style.italic = style.italic || m_rules.alwaysItalic;
            WriteStyle(m_samples[i].defaults.section, style, u"1");
        }
        Write(m_rules.font3D, m_chkFontEffect->isChecked() ? m_rules.effect : 0);
        if (m_chkStrikeOut) Write(*m_rules.strikeOut, m_chkStrikeOut->isChecked() ? -1 : 0);
    });
    QDialog::accept();
}
