#include "printing/pagesetupform.h"

#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/look/colorvalue.h"
#include "platform/look/paper.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "printing/onelinebox.h"
#include "settings/settings.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
struct MarginRow
{
    const char* name;
    const char* label; // with the box's mnemonic
    const TextSetting* setting;
};

constexpr MarginRow MarginRows[] = {{"tbLeft", "&Left:", &settings::PageLeft},
                                    {"tbTop", "&Top:", &settings::PageTop},
                                    {"tbRight", "&Right:", &settings::PageRight},
                                    {"tbBottom", "&Bottom:", &settings::PageBottom}};

// "1.00" in the locale's spelling.
QString UsualMargin()
{
    constexpr int SeparatorSize = 5;
    return u'1' + GetPrivateProfileStringA(u"intl"_s, u"sDecimal"_s, u"."_s, SeparatorSize, u"WIN.INI"_s) + u"00"_s;
}

FontChoice ReadHeaderFont()
{
    return {.name = Read(settings::PageHeaderFont),
            .size = Val(Read(settings::PageHeaderSize).replace(u',', u'.')),
            .bold = Read(settings::PageHeaderBold) != 0,
            .italic = Read(settings::PageHeaderItalic) != 0,
            .color = ColorOf(Read(settings::PageHeaderColor))};
}
} // namespace

PageSetupForm::PageSetupForm(QWidget* owner) : QDialog(owner)
{
    setObjectName(u"PageSetupForm"_s);
    setWindowTitle(u"Customize Page Setup"_s);
    auto* frame = new DialogPart(u"Page Setup"_s, DialogPart::Kind::Whole);
    auto* parts = new QVBoxLayout(frame);
    parts->addWidget(MakeHeaderFrame());
    parts->addWidget(MakeMarginFrame());
    auto* column = DialogColumn(*this);
    column->addWidget(frame);
    column->addWidget(MakeOkCancel(*this));
    ShowSettings();
    CenterOnScreen(*this);
}

QWidget* PageSetupForm::MakeHeaderFrame()
{
    constexpr int HeaderWidth = 380;
    auto* frame = new DialogPart(u"Header"_s);
    m_tbHeader = new OneLineBox(u"tbHeader"_s, OneLineBox::OnEntering::KeepSelection);
    m_tbHeader->setAccessibleName(u"Header"_s);
    m_tbHeader->setMaxLength(settings::PageHeader.size - 1);
    m_tbHeader->setFixedWidth(HeaderWidth);
    auto* btnFonts = Named(new QPushButton(u"&Fonts"_s), "btnFonts");
    connect(btnFonts, &QPushButton::clicked, this,
            Guarded(" in PageSetupForm, btnFonts_Click"_L1, [this] { btnFonts_Click(); }));
    auto* row = new QHBoxLayout(frame);
    row->addWidget(m_tbHeader);
    row->addWidget(btnFonts);
    return frame;
}

QWidget* PageSetupForm::MakeMarginFrame()
{
    constexpr int MarginWidth = 72, ColumnGap = Rhythm;
    auto* frame = new DialogPart(u"Margins (Inches)"_s);
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < m_margins.size(); ++i) {
        m_margins[i] = new OneLineBox(QString::fromLatin1(MarginRows[i].name), OneLineBox::OnEntering::SelectAll);
        m_margins[i]->setMaxLength(MarginRows[i].setting->size - 1);
        m_margins[i]->setFixedWidth(MarginWidth);
        // Left above right, top above bottom: two columns.
        const int row = int(i) / 2, column = int(i) % 2 * 3;
        grid->addWidget(LabelOf(QString::fromLatin1(MarginRows[i].label), m_margins[i]), row, column);
        grid->addWidget(m_margins[i], row, column + 1);
    }
    grid->setColumnMinimumWidth(2, ColumnGap);
    grid->setColumnStretch(5, 1);
    return frame;
}

void PageSetupForm::ShowSettings()
{
    const ErrorTail tail(" in PageSetupForm, Form_Load"_L1);
    tail([&] {
        const QString usual = UsualMargin();
        for (std::size_t i = 0; i < m_margins.size(); ++i)
            m_margins[i]->setText(Read(*MarginRows[i].setting, usual));
        m_tbHeader->setText(Read(settings::PageHeader));
        m_tbHeader->setCursorPosition(0);
    });
    tail([&] {
        m_headerFont = ReadHeaderFont();
        ShowHeaderFont();
    });
}

void PageSetupForm::btnFonts_Click()
{
    const ErrorTail tail(" in PageSetupForm, btnFonts_Click"_L1);
    tail([&] {
        // Starts from the stored font, not from an earlier choice in this dialog.
        FontChoice choice = ReadHeaderFont();
        if (!ChooseFont(this, choice, fontdialog::ScreenFontsAndEffects)) return;
        m_headerFont = choice;
        ShowHeaderFont();
    });
}

// Shows the header's font, at most as large as the window allows.
void PageSetupForm::ShowHeaderFont()
{
    constexpr double LargestShown = 48;
    QFont font(m_headerFont.name);
    font.setPointSizeF(std::clamp(m_headerFont.size, 1.0, LargestShown));
    font.setBold(m_headerFont.bold);
    font.setItalic(m_headerFont.italic);
    m_tbHeader->setFont(font);
    QPalette palette = m_tbHeader->palette();
    palette.setColor(QPalette::Base, paper::Paper);
    palette.setColor(QPalette::Text, ColorOfValue(m_headerFont.color));
    m_tbHeader->setPalette(palette);
}

void PageSetupForm::WriteHeader() const
{
    Write(settings::PageHeader, m_tbHeader->text());
    Write(settings::PageHeaderFont, m_headerFont.name.trimmed());
    Write(settings::PageHeaderBold, m_headerFont.bold ? -1 : 0);
    Write(settings::PageHeaderItalic, m_headerFont.italic ? -1 : 0);
    Write(settings::PageHeaderSize, QString::number(m_headerFont.size));
    Write(settings::PageHeaderColor, ColorText(m_headerFont.color));
}

void PageSetupForm::accept()
{
    const ErrorTail tail(" in PageSetupForm, btnOk_Click"_L1);
    tail([&] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        for (std::size_t i = 0; i < m_margins.size(); ++i)
            Write(*MarginRows[i].setting, m_margins[i]->text());
        WriteHeader();
    });
    QDialog::accept();
}
