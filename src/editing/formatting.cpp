#include "editing/formatting.h"

#include "calendar/calendarstate.h"
#include "calendar/cells.h"
#include "calendar/modshow.h"
#include "editing/formatbar.h"
#include "plannerfile/plannerstate.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "shell/messages.h"
#include "workgroup/networkcontrols.h"

#include <QCoreApplication>
#include <QKeyEvent>

// One of the four styles that a command turns on and off.
struct Formatting::Toggle
{
    QLatin1StringView literal;
    const char16_t* key; // of its toolbar button
    std::optional<bool> (RichTextBox::*read)() const;
    void (RichTextBox::*write)(bool);
};

bool Formatting::fnCanFormatCell()
{
    if (!g_bDBShared || !m_network.picLock->Visible(0)) return true;
    MsgBox(QStringLiteral("Please lock the desired day before attempting to apply font attributes to current cell"),
           msgbox::Information, messages::HelpWizard);
    return false;
}

RichTextBox& Formatting::CurrentBox()
{
    if (!m_cells.Shows(g_iCurrentPanel)) m_cells.EnterAgain();
    return m_cells.tbDay(g_iCurrentPanel);
}

void Formatting::Run(const Toggle& toggle)
{
    const ErrorTail tail(toggle.literal);
    tail([&] {
        if (!fnCanFormatCell()) return;
        RichTextBox& box = CurrentBox();
        ToolbarButton& button = m_bar.tbTop->Buttons(QString::fromUtf16(toggle.key));
        const std::optional<bool> now = (box.*toggle.read)();
        // A mixed selection becomes uniform, and its button stays grey until the selection changes.
        button.SetMixedState(!now);
        if (now) button.SetValue(*now ? 0 : 1);
        (box.*toggle.write)(!now.value_or(false));
    });
}

void Formatting::mnuBold_Click()
{
    Run({QLatin1StringView(" in MainForm, mnuBold_Click"), u"bold", &RichTextBox::SelBold, &RichTextBox::SetSelBold});
}

void Formatting::mnuItalic_Click()
{
    Run({QLatin1StringView(" in MainForm, mnuItalic_Click"), u"italic", &RichTextBox::SelItalic,
         &RichTextBox::SetSelItalic});
}

void Formatting::mnuUnderline_Click()
{
    Run({QLatin1StringView(" in MainForm, mnuUnderline_Click"), u"underline", &RichTextBox::SelUnderline,
         &RichTextBox::SetSelUnderline});
}

void Formatting::mnuStrikeThru_Click()
{
    Run({QLatin1StringView(" in MainForm, mnuStrikeThru_Click"), u"strikethru", &RichTextBox::SelStrikeThru,
         &RichTextBox::SetSelStrikeThru});
}

void Formatting::Justify(int alignment)
{
    CurrentBox().SetSelAlignment(alignment);
}

void Formatting::mnuLeftJustify_Click()
{
    Justify(0);
}

void Formatting::mnuCenterJustify_Click()
{
    Justify(2);
}

void Formatting::mnuRightJustify_Click()
{
    Justify(1);
}

void Formatting::SendKey(int key, Qt::KeyboardModifiers modifiers)
{
    RichTextBox& box = CurrentBox();
    box.setFocus();
    QCoreApplication::postEvent(&box, new QKeyEvent(QEvent::KeyPress, key, modifiers));
    QCoreApplication::postEvent(&box, new QKeyEvent(QEvent::KeyRelease, key, modifiers));
}

void Formatting::mnuCut_Click()
{
    ErrorTail{QLatin1StringView(" in MainForm, mnuCut_Click")}([&] {
        if (fnCanFormatCell()) SendKey(Qt::Key_Delete, Qt::ShiftModifier);
    });
}

void Formatting::mnuCopy_Click()
{
    ErrorTail{QLatin1StringView(" in MainForm, mnuCopy_Click")}([&] { SendKey(Qt::Key_Insert, Qt::ControlModifier); });
}

void Formatting::mnuPaste_Click()
{
    ErrorTail{QLatin1StringView(" in MainForm, mnuPaste_Click")}([&] {
        if (fnCanFormatCell()) SendKey(Qt::Key_Insert, Qt::ShiftModifier);
    });
}

void Formatting::orlcmbFontname_Change()
{
    CurrentBox().SetSelFontName(m_bar.orlcmbFontname->Text());
}

void Formatting::orlcmbFontsize_Change()
{
    CurrentBox().SetSelFontSize(Val(m_bar.orlcmbFontsize->Text()));
}

void Formatting::orlcmbFontcolor_Change()
{
    const QString name = m_bar.orlcmbFontcolor->Text().trimmed().toUpper();
    if (!name.isEmpty()) CurrentBox().SetSelColor(fnColorInHex(name));
}

void Formatting::subInitAllComboBox()
{
    const ErrorTail tail(QLatin1StringView(" in MainForm, subInitAllComboBox"));
    tail([&] { m_bar.orlcmbFontcolor->FillColors(); });
    tail([&] { m_bar.orlcmbFontsize->FillFontSizes(); });
    tail([&] { m_bar.orlcmbFontname->FillFontNames(); });
    for (ORLCombo* combo : {m_bar.orlcmbFontcolor, m_bar.orlcmbFontsize, m_bar.orlcmbFontname})
        combo->show();
}
