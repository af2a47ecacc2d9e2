// The line above the buttons: the days that Ok would write or Delete would search.
#include "platform/controls/maskedbox.h"
#include "platform/runtime/errortail.h"
#include "platform/runtime/language.h"
#include "recurrence/recurform.h"
#include "settings/messages.h"
#include "state/dateorder.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

void RecurForm::FollowChanges()
{
    const auto follow = [this](auto* control, auto changed) {
        connect(control, changed, this, Guarded(" in RecurForm, ShowDays"_L1, [this] { ShowDays(); }));
    };
    follow(m_maskStartDate, &MaskEdBox::textChanged);
    follow(m_maskUntil, &MaskEdBox::textChanged);
    follow(m_opMethod, &QButtonGroup::idToggled);
    follow(m_cmbRecurDays, &QComboBox::currentTextChanged);
    follow(m_cmbRecurSpecial, &QComboBox::currentTextChanged);
    ShowDays();
}

QString RecurForm::StartDate() const
{
    return m_iDateFormat.EntryDate(m_maskStartDate->Text());
}

QString RecurForm::EndDate() const
{
    return m_iDateFormat.EntryDate(m_maskUntil->Text());
}

RecurForm::Refusal RecurForm::RefusalOfDates() const
{
    // With a digit missing the date could be read as another year's.
    if (!m_maskStartDate->IsComplete() || !fnValidateDate(StartDate()))
        return {u"Start Date is not a valid date"_s, m_maskStartDate, msgbox::Information};
    if (!m_maskUntil->IsComplete() || !fnValidateDate(EndDate()))
        return {u"End Date is not a valid date"_s, m_maskUntil, msgbox::Information};
    if (!fnCheckBackwardDate(StartDate(), EndDate()))
        return {u"The Ending Date is earlier than Starting Date"_s, m_maskUntil, msgbox::Exclamation};
    return {};
}

std::int16_t RecurForm::Step(const ErrorTail& tail) const
{
    std::int16_t step = 0;
    tail([&] { step = IntegerOf(m_cmbRecurDays->currentText()); });
    return step;
}

QString RecurForm::MethodProblem() const
{
    const int method = m_opMethod->checkedId();
    if (method < 0) return u"Please select a recurring method (Day, Week, Month or Year)"_s;
    const ErrorTail whileTyping(" in RecurForm, ShowDays"_L1, {errors::Overflow});
    if (method == Special && Step(whileTyping) < 1)
        return u"Please choose how many days, weeks, months or years, 1 or more"_s;
    return {};
}

QString RecurForm::DaysToWrite() const
{
    QString problem = RefusalOfDates().text;
    if (problem.isEmpty()) problem = MethodProblem();
    if (!problem.isEmpty()) return u"Nothing to write yet. %1."_s.arg(problem);
    const bool isSpecial = m_opMethod->checkedId() == Special;
    const int unit = isSpecial ? m_cmbRecurSpecial->currentIndex() : m_opMethod->checkedId();
    const int step = isSpecial ? Step(ErrorTail{" in RecurForm, ShowDays"_L1}) : 1;
    return EventInWords(static_cast<Frequency>(unit), fnFnGetQMTDate(StartDate()), fnFnGetQMTDate(EndDate()), step);
}

// Another program may have stored something other than dates. Such a record has no notes.
bool RecurForm::LeadsToNotes() const
{
    return m_opMethod->checkedId() >= 0 && fnValidateDate(StartDate()) && fnValidateDate(EndDate());
}

QString RecurForm::StoredDays() const
{
    if (!LeadsToNotes()) return u"This event leads to no days."_s;
    const auto method = static_cast<Frequency>(m_opMethod->checkedId());
    return EventInWords(method, fnFnGetQMTDate(StartDate()), fnFnGetQMTDate(EndDate()), 1);
}

void RecurForm::ShowDays()
{
    const bool browses = m_btnDelete->isEnabled();
    const QString days = browses ? StoredDays() + u"\nDelete looks for its text in each of these days."_s
                                 : DaysToWrite() + u"\n\"Every ...\" counts only with \"Special\"."_s;
    m_lblDays->setText(days);
    (browses ? m_btnDelete : m_btnOk)->setAccessibleDescription(days);
}

bool RecurForm::AskToDelete() const
{
    const QString question = u"Do you want to delete this recurring event? Its text is taken out of the notes where it "
                             "still stands as it was written.\n\n"_s +
                             StoredDays();
    return MsgBox(question, msgbox::YesNo + msgbox::Question + msgbox::DefaultButton2, messages::HelpWizard) ==
           msgbox::Yes;
}
