#include "appearance/initfontform.h"

#include "appearance/defaultsbutton.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/controls/orlcombo.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

namespace {
struct StyleRow
{
    const char* name;
    QLatin1StringView caption;
    const IntSetting* setting;
};

constexpr StyleRow StyleRows[] = {{"chkBold", "Bold"_L1, &settings::DefaultBold},
                                  {"chkItalic", "Italic"_L1, &settings::DefaultItalic},
                                  {"chkUnderline", "Underline"_L1, &settings::DefaultUnderline},
                                  {"chkStrikeThrough", "Strikethrough"_L1, &settings::DefaultStrikeThrough}};

constexpr QLatin1StringView Black("Black"); // "0", the default of the setting, stands for it

ORLCombo* AddCombo(QGridLayout& rows, const char* name, const QString& label, void (ORLCombo::*fill)())
{
    auto* combo = Named(new ORLCombo, name);
    combo->setFocusPolicy(Qt::StrongFocus); // in this dialog no cell's caret has to keep the focus
    (combo->*fill)();
    rows.addWidget(LabelOf(label, combo), rows.rowCount(), 0);
    rows.addWidget(combo, rows.rowCount() - 1, 1);
    return combo;
}

void Select(ORLCombo& combo, const QString& text)
{
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (combo.List(i).trimmed().compare(text.trimmed(), Qt::CaseInsensitive) == 0) return combo.SetListIndex(i);
    }
    combo.ShowText(text);
}
} // namespace

InitFontForm::InitFontForm(QWidget* owner) : QDialog(owner)
{
    setObjectName(u"InitFontForm"_s);
    setWindowTitle(u"Customize Initial Fonts"_s);
    auto* column = DialogColumn(*this);
    column->addWidget(new QLabel(u"Customize your default choice of Font Name, Size and Color."_s));
    auto* frame = new DialogPart(u"Initial Fonts"_s);
    auto* rows = new QGridLayout(frame);
    rows->setColumnStretch(1, 1);
    m_orlcmbFontname = AddCombo(*rows, "orlcmbFontname", u"&Font:"_s, &ORLCombo::FillFontNames);
    m_orlcmbFontsize = AddCombo(*rows, "orlcmbFontsize", u"&Size:"_s, &ORLCombo::FillFontSizes);
    m_orlcmbFontcolor = AddCombo(*rows, "orlcmbFontcolor", u"Colo&r:"_s, &ORLCombo::FillColors);
    for (std::size_t i = 0; i < m_styles.size(); ++i) {
        m_styles[i] = Named(new QCheckBox(StyleRows[i].caption), StyleRows[i].name);
        rows->addWidget(m_styles[i], rows->rowCount(), 1);
    }
    column->addWidget(frame);
    QDialogButtonBox* buttons = MakeOkCancel(*this);
    connect(AddDefaultsButton(*buttons), &QPushButton::clicked, this, &InitFontForm::ShowDefaults);
    column->addWidget(buttons);
    ShowSettings();
    CenterOnScreen(*this);
}

void InitFontForm::ShowSettings()
{
    const ErrorTail tail(" in InitFontForm, Form_Load"_L1);
    tail([&] { Select(*m_orlcmbFontname, Read(settings::DefaultFontName)); });
    tail([&] { Select(*m_orlcmbFontsize, QString::number(Read(settings::DefaultFontSize))); });
    tail([&] {
        const QString color = Read(settings::DefaultFontColor);
        Select(*m_orlcmbFontcolor, color == settings::DefaultFontColor.fallback ? QString(Black) : color);
    });
    for (std::size_t i = 0; i < m_styles.size(); ++i)
        m_styles[i]->setChecked(Read(*StyleRows[i].setting) == 1);
}

void InitFontForm::ShowDefaults()
{
    Select(*m_orlcmbFontname, settings::DefaultFontName.fallback.toString());
    Select(*m_orlcmbFontsize, QString::number(settings::DefaultFontSize.fallback));
    Select(*m_orlcmbFontcolor, Black);
    for (std::size_t i = 0; i < m_styles.size(); ++i)
        m_styles[i]->setChecked(StyleRows[i].setting->fallback == 1);
}

void InitFontForm::accept()
{
    ErrorTail{" in InitFontForm, btnOK_Click"_L1}([this] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        WriteText(settings::DefaultFontSize, m_orlcmbFontsize->Text().trimmed());
        Write(settings::DefaultFontColor, m_orlcmbFontcolor->Text().trimmed());
        Write(settings::DefaultFontName, m_orlcmbFontname->Text().trimmed());
        for (std::size_t i = 0; i < m_styles.size(); ++i)
            Write(*StyleRows[i].setting, m_styles[i]->isChecked() ? 1 : 0);
    });
    QDialog::accept();
}
