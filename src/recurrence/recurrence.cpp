#include "recurrence/recurrence.h"

#include "calendar/moddate.h"
#include "plannerfile/backups.h"
#include "plannerfile/plannerstate.h"
#include "plannerfile/schema.h"
#include "platform/desktop/msgbox.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"

namespace {
using schema::DateField, schema::Equal, schema::TextField;

void Tell(const QString& text, int icon, const QString& reason = {})
{
    MsgBox(text, icon, messages::HelpWizard, reason);
}

bool TellOfFailures(qsizetype failures, qsizetype all, const QString& what, const QString& reason)
{
    if (failures > 0) Tell(what.arg(failures).arg(all), msgbox::Exclamation, reason);
    return failures == 0;
}

bool AskToRetry(const QString& date, const QString& reason)
{
    const QString question = u"%1 is locked.\n%2\n\nDo you want to retry?"_s;
    return MsgBox(question.arg(fnFormatDateKey(date), reason), msgbox::YesNo + msgbox::Question,
                  messages::HelpWizard) == msgbox::Yes;
}

// A day that its month does not have is written as it comes, but no view shows it, and nothing comes after it.
bool AskToEndAt(const QString& lastDate, std::int16_t step)
{
    const QString question =
        u"Counted in steps of %1 days, this recurring event would end at %2: its month has no such day, and "
        "no later date can be counted from there.\n\nDo you want to write it up to that date?"_s;
    return MsgBox(question.arg(step).arg(fnFormatDateKey(lastDate)), msgbox::YesNo + msgbox::Question,
                  messages::HelpWizard) == msgbox::Yes;
}
} // namespace

bool Recurrence::fnRecurseDaily(const QString& sStart, const QString& sEnd, std::int16_t iStep)
{
    return Save(Frequency::Daily, " in RecurForm, fnRecurseDaily"_L1, sStart, sEnd, iStep);
}

bool Recurrence::fnRecurseWeekly(const QString& sStart, const QString& sEnd, std::int16_t iStep)
{
    return Save(Frequency::Weekly, " in RecurForm, fnRecurseWeekly"_L1, sStart, sEnd, iStep);
}

bool Recurrence::fnRecurseMonthly(const QString& sStart, const QString& sEnd, std::int16_t iStep)
{
    return Save(Frequency::Monthly, " in RecurForm, fnRecurseMonthly"_L1, sStart, sEnd, iStep);
}

bool Recurrence::fnRecurseYearly(const QString& sStart, const QString& sEnd, std::int16_t iStep)
{
    return Save(Frequency::Yearly, " in RecurForm, fnRecurseYearly"_L1, sStart, sEnd, iStep);
}

bool Recurrence::HasText()
{
    if (m_text.IsEmpty()) Tell(u"Recurring event cannot be empty"_s, msgbox::Information);
    return !m_text.IsEmpty();
}

bool Recurrence::Save(Frequency frequency, QLatin1StringView literal, const QString& sStart, const QString& sEnd,
                      std::int16_t iStep)
{
    if (!HasText()) return false;
    const QString startKey = fnFnGetQMTDate(sStart);
    const QString endKey = fnFnGetQMTDate(sEnd);
    if (frequency != Frequency::Daily && !IsDayOfItsMonth(endKey)) {
        Tell(u"End Date is not a valid date"_s, msgbox::Information);
        return false;
    }
    const QStringList dates = EventDates(frequency, startKey, endKey, iStep);
    if (BreaksOff(frequency, dates, endKey, iStep) && !AskToEndAt(dates.last(), iStep)) return false;
    BackUpBeforeSave();
    if (!SaveRecord(literal, startKey, endKey, WordOf(frequency))) return false;
    DayRun run(g_dbPlanner, " in RecurForm, subUpdateRecurseData"_L1, m_progress);
    const qsizetype failures = run(dates, [&](const QString& date) { subUpdateRecurseData(date, run); });
    TellOfFailures(failures, dates.size(), u"The recurring event could not be written into %1 of its %2 days."_s,
                   run.LastError());
    return true;
}

// Without its record the event could never be taken out again, so nothing is written then.
bool Recurrence::SaveRecord(QLatin1StringView literal, const QString& startKey, const QString& endKey,
                            const QString& frequency) const
{
    return ErrorTail{literal}([&] {
        try {
            subSaveRecurseRecord(startKey, endKey, frequency);
        } catch (const RunTimeError& error) {
            Tell(u"The recurring event could not be saved."_s, msgbox::Exclamation, error.Description);
            throw;
        }
    });
}

void Recurrence::subSaveRecurseRecord(const QString& startKey, const QString& endKey, const QString& frequency) const
{
    g_rsRecurse.AddNew();
    g_rsRecurse.SetField(u"Start Date"_s, startKey);
    g_rsRecurse.SetField(u"End Date"_s, endKey);
    g_rsRecurse.SetField(u"Frequency"_s, frequency);
    g_rsRecurse.SetField(u"Recursion Text"_s, m_text.Rtf());
    g_rsRecurse.Update();
}

void Recurrence::subUpdateRecurseData(const QString& sDate, DayRun& run)
{
    g_rsQMT.Seek(Equal, sDate);
    if (g_rsQMT.NoMatch()) {
        g_rsQMT.AddNew();
        g_rsQMT.SetField(DateField, sDate);
        g_rsQMT.SetField(TextField, m_text.Rtf());
    } else {
        if (!fnCanSaveRecurseText(sDate, run)) return;
        g_rsQMT.SetField(TextField, m_text.AppendedTo(g_rsQMT.Fields(TextField).toByteArray()));
    }
    g_rsQMT.Update();
}

bool Recurrence::TakeOut(Frequency frequency, const QString& startKey, const QString& endKey)
{
    BackUpBeforeSave();
    const QStringList dates = RemovalDates(frequency, startKey, endKey);
    DayRun run(g_dbPlanner, " in RecurForm, subRemoveRecurStr"_L1, m_progress);
    const qsizetype failures = run(dates, [&](const QString& date) { subRemoveRecurStr(date); });
    return TellOfFailures(failures, dates.size(),
                          u"The recurring event could not be taken out of %1 of %2 days. It is kept, so "
                          "that you can delete it again."_s,
                          run.LastError());
}

void Recurrence::subRemoveRecurStr(const QString& sDate)
{
    g_rsQMT.Seek(Equal, sDate);
    if (g_rsQMT.NoMatch()) return;
    const auto rest = m_text.TakenOutOf(g_rsQMT.Fields(TextField).toByteArray());
    if (!rest) return;
    g_rsQMT.Edit();
    g_rsQMT.SetField(TextField, *rest);
    g_rsQMT.Update();
    // One blank is how an emptied day is stored.
    if (g_rsQMT.Fields(TextField).toByteArray() == schema::EmptiedNote) g_rsQMT.Delete();
}

bool fnCanSaveRecurseText(const QString& sDate, DayRun& run)
{
    for (;;) {
        try {
            g_rsQMT.Edit();
            return true;
        } catch (const RunTimeError& error) {
            if (!run.IsAlone()) throw;
            if (error.Number != engineerrors::RecordLocked) {
                LogError(error, " in RecurForm, fnCanSaveRecurseText"_L1);
                run.Fail(error.Description);
                return false;
            }
            if (!AskToRetry(sDate, error.Description)) return false;
            g_rsQMT.Seek(Equal, sDate); // a timer behind the question may have read other days
        }
    }
}
