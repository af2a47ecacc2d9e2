#include "appearance/styleform.h"

#include "appearance/defaultsbutton.h"
#include "hall/panelstyle.h"
#include "platform/controls/accessrole.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/fontdialog.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/controls/sspanel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>

namespace {
// A panel in the look of its cell or heading. A click or Space changes that look.
class SamplePanel : public SSPanel
{
public:
    SamplePanel()
    {
        SetAccessibleRole(this, QAccessible::Button);
        setFocusPolicy(Qt::StrongFocus);
        setCursor(Qt::PointingHandCursor);
        SetEdges(Qt::TopEdge | Qt::LeftEdge | Qt::RightEdge | Qt::BottomEdge);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() != Qt::Key_Space) return SSPanel::keyPressEvent(event);
        Q_EMIT Click();
    }
    void focusInEvent(QFocusEvent* event) override
    {
        SSPanel::focusInEvent(event);
        SetActive(true);
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        SSPanel::focusOutEvent(event);
        SetActive(false);
    }
};
} // namespace

StyleForm::StyleForm(const StyleRules& rules, const std::vector<StyleSample>& samples, QWidget* owner)
    : QDialog(owner), m_rules(rules), m_samples(samples)
{
    setObjectName(QString::fromLatin1(m_rules.name));
    setWindowTitle(m_rules.title);
    auto* column = DialogColumn(*this);
    column->addWidget(new QLabel(m_rules.hint));
    AddSamples(AddPart<QGridLayout>(*column, m_rules.frame));
    auto* checks = new QVBoxLayout;
    checks->setSpacing(Rhythm);
    column->addLayout(checks);
    AddChecks(*checks);
    QDialogButtonBox* buttons = MakeOkCancel(*this, u"btnSave"_s);
    connect(AddDefaultsButton(*buttons), &QPushButton::clicked, this, &StyleForm::ShowDefaults);
    column->addWidget(buttons);
    ShowEffects();
    CenterOnScreen(*this);
}

void StyleForm::AddSamples(QGridLayout& grid)
{
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
        const QString& label = m_samples[i].label;
        const int column = static_cast<int>(i);
        m_panels.push_back(MakeSample(i));
        // The sample that stands for all is as wide as the others together.
        if (i == Written())
            grid.addWidget(m_panels[i], 1, 0, 1, -1);
        else
            grid.addWidget(m_panels[i], 0, column);
        if (!label.isEmpty()) grid.addWidget(new QLabel(label), 1, column, Qt::AlignHCenter);
    }
}

SSPanel* StyleForm::MakeSample(std::size_t number)
{
    constexpr QSize SmallestSample(88, 72);
    const StyleSample& sample = m_samples[number];
    auto* panel = new SamplePanel;
    panel->setObjectName(sample.name);
    panel->setMinimumSize(SmallestSample);
    panel->SetPaper(sample.paper);
    panel->SetFrame(sample.frame);
    panel->SetCaptionAlignment(sample.alignment);
    panel->SetCaption(sample.caption);
    panel->setAccessibleName(sample.label.isEmpty() ? sample.caption : sample.label);
    ApplyStyle(*panel, ReadStyle(sample.defaults));
    connect(panel, &SSPanel::Click, this, Guarded(m_rules.click, [this, number] { PressSample(number); }));
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
    for (SSPanel* panel : m_panels)
        panel->SetFont3D(m_effect);
    if (!m_chkStrikeOut) return;
    QFont font = m_panels.back()->CaptionFont();
    font.setStrikeOut(m_chkStrikeOut->isChecked());
    m_panels.back()->SetCaptionFont(font);
}

// The font dialog starts from the stored style, not from the sample.
void StyleForm::PressSample(std::size_t number)
{
    const auto chosen = ChooseStyle(this, ReadStyle(m_samples[number].defaults));
    if (!chosen) return;
    for (std::size_t i = 0; i < m_panels.size(); ++i)
        if (i == number || number == Written()) ApplyStyle(*m_panels[i], *chosen);
    ShowEffects();
}

void StyleForm::ShowDefaults()
{
    for (std::size_t i = 0; i < m_panels.size(); ++i) {
        PanelStyle style = DefaultStyle(m_samples[i].drawn);
        style.italic = style.italic || m_rules.alwaysItalic; // as Ok stores it
        ApplyStyle(*m_panels[i], style);
    }
    m_chkFontEffect->setChecked(m_rules.font3D.fallback != 0);
    m_effect = m_rules.font3D.fallback;
    if (m_chkStrikeOut) m_chkStrikeOut->setChecked(m_rules.strikeOut->fallback != 0);
    ShowEffects();
}

void StyleForm::accept()
{
    ErrorTail{m_rules.save}([this] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        for (std::size_t i = 0; i < Written(); ++i) {
            PanelStyle style = StyleOf(*m_panels[i]);
            style.italic = style.italic || m_rules.alwaysItalic;
            WriteStyle(m_samples[i].defaults.section, style, u"1");
        }
        Write(m_rules.font3D, m_chkFontEffect->isChecked() ? m_rules.effect : 0);
        if (m_chkStrikeOut) Write(*m_rules.strikeOut, m_chkStrikeOut->isChecked() ? -1 : 0);
    });
    QDialog::accept();
}

std::optional<PanelStyle> ChooseStyle(QWidget* owner, const PanelStyle& style)
{
    FontChoice choice = {.name = style.fontName,
                         .size = static_cast<double>(style.size),
                         .bold = style.bold,
                         .italic = style.italic,
                         .color = style.color};
    if (!ChooseFont(owner, choice, fontdialog::ScreenFontsAndEffects | fontdialog::TrueTypeOnly)) return std::nullopt;
    return PanelStyle{choice.name, choice.bold, qRound(choice.size), choice.italic, choice.color};
}
