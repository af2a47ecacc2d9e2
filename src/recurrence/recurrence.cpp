#include "recurrence/recurrence.h"

#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/controls/workwindow.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "state/plannerstate.h"

namespace {
using schema::DateField, schema::Equal, schema::TextField;

const QString Title = u"Recurring Events"_s;

constexpr QLatin1StringView SaveLiterals[] = {" in RecurForm, fnRecurseDaily"_L1, " in RecurForm, fnRecurseWeekly"_L1,
                                              " in RecurForm, fnRecurseMonthly"_L1,
                                              " in RecurForm, fnRecurseYearly"_L1};

bool Ask(const QString& question)
{
    return MsgBox(question, msgbox::YesNo + msgbox::Question, messages::HelpWizard) == msgbox::Yes;
}

bool AskToRetry(const QString& date, const QString& reason)
{
    return Ask(u"%1 is locked.\n%2\n\nDo you want to retry?"_s.arg(fnFormatDateKey(date), reason));
}

// A day that its month does not have is written, but no view shows it, and the event ends there.
bool AskToEndAt(const QString& lastDate, std::int16_t step)
{
    return Ask(u"Counted in steps of %1 days, this recurring event would end at %2: its month has no such day, and "
               "no later date can be counted from there.\n\nDo you want to write it up to that date?"_s.arg(step)
                   .arg(fnFormatDateKey(lastDate)));
}

// Begins to edit the date's record, the current one of g_rsQMT. If another user has locked it, the person may retry.
// False if they give up or another error was noted in the run. In a group nobody is asked: the error is raised.
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
            g_rsQMT.Seek(Equal, sDate); // a timer may have moved the recordset during the question
        }
    }
}

void TellFailures(const DayRun& run, const QStringList& dates, const QString& text)
{
    if (run.Failures() == 0) return;
    messages::Tell(text.arg(run.Failures()).arg(dates.size()), msgbox::Exclamation, run.LastError());
}
} // namespace

bool Recurrence::HasText()
{
    if (m_text.IsEmpty()) messages::Tell(u"Recurring event cannot be empty"_s);
    return !m_text.IsEmpty();
}

bool Recurrence::Save(Frequency frequency, const QString& sStart, const QString& sEnd, std::int16_t iStep)
{
    if (!HasText()) return false;
    const QString startKey = fnFnGetQMTDate(sStart);
    const QString endKey = fnFnGetQMTDate(sEnd);
    if (frequency != Frequency::Daily && !IsDayOfItsMonth(endKey)) {
        messages::Tell(u"End Date is not a valid date"_s);
        return false;
    }
    const QStringList dates = EventDates(frequency, startKey, endKey, iStep);
    if (BreaksOff(frequency, dates, endKey, iStep) && !AskToEndAt(dates.last(), iStep)) return false;
    BackUpBeforeSave();
    if (!SaveRecord(frequency, startKey, endKey)) return false;
    const qsizetype done = WriteInto(dates);
    return done == dates.size() || !TakeBack(dates.first(done));
}

qsizetype Recurrence::WriteInto(const QStringList& dates)
{
    const WorkWindow window(Title, u"Cancel takes the event out of its days again."_s);
    DayRun run(g_dbPlanner, " in RecurForm, subUpdateRecurseData"_L1);
    const qsizetype done = run(dates, [&](const QString& date) { subUpdateRecurseData(date, run); });
    if (done == dates.size())
        TellFailures(run, dates, u"The recurring event could not be written into %1 of its %2 days."_s);
    return done;
}

// The record goes last: without it the rest of the event could not be taken out.
bool Recurrence::TakeBack(const QStringList& dates)
{
    const WorkWindow window(Title);
    const bool isOut = TakeOutOf(dates, [this](const QString& date) { TakeBackOf(date); });
    if (isOut) DeleteRecord();
    return isOut;
}

// Not by its place: other events may begin on the same date, and another user may have added one meanwhile.
void Recurrence::DeleteRecord()
{
    const auto isOurs = [](const auto& field) { return g_rsRecurse.Fields(field.first) == field.second; };
    g_rsRecurse.Seek(Equal, m_record.front().second);
    while (!g_rsRecurse.NoMatch() && !g_rsRecurse.EOF_()) {
        if (std::ranges::all_of(m_record, isOurs)) return g_rsRecurse.Delete();
        g_rsRecurse.MoveNext();
    }
}

// Without its record an event could not be removed, so a failure here stops the save.
bool Recurrence::SaveRecord(Frequency frequency, const QString& startKey, const QString& endKey)
{
    return ErrorTail{SaveLiterals[static_cast<int>(frequency)]}([&] {
        try {
            subSaveRecurseRecord(startKey, endKey, WordOf(frequency));
        } catch (const RunTimeError& error) {
            messages::Tell(u"The recurring event could not be saved."_s, msgbox::Exclamation, error.Description);
            throw;
        }
    });
}

void Recurrence::subSaveRecurseRecord(const QString& startKey, const QString& endKey, const QString& frequency)
{
    m_record = {{u"Start Date"_s, startKey},
                {u"End Date"_s, endKey},
                {u"Frequency"_s, frequency},
                {u"Recursion Text"_s, m_text.Rtf()}};
    g_rsRecurse.AddNew();
    for (const auto& [field, value] : m_record)
        g_rsRecurse.SetField(field, value);
    g_rsRecurse.Update();
}

void Recurrence::subUpdateRecurseData(const QString& sDate, DayRun& run)
{
    QByteArray before;
    m_before.remove(sDate); // of a group that was not committed
    g_rsQMT.Seek(Equal, sDate);
    if (g_rsQMT.NoMatch()) {
        g_rsQMT.AddNew();
        g_rsQMT.SetField(DateField, sDate);
        g_rsQMT.SetField(TextField, m_text.Rtf());
    } else {
        if (!fnCanSaveRecurseText(sDate, run)) return;
        before = g_rsQMT.Fields(TextField).toByteArray();
        g_rsQMT.SetField(TextField, m_text.AppendedTo(before));
        if (before.isNull()) before = QByteArrayLiteral("");
    }
    g_rsQMT.Update();
    m_before.insert(sDate, before);
}

bool Recurrence::TakeOut(Frequency frequency, const QString& startKey, const QString& endKey)
{
    BackUpBeforeSave();
    const WorkWindow window(Title, u"After a Cancel the event is kept, so that you can delete it again."_s);
    return TakeOutOf(RemovalDates(frequency, startKey, endKey),
                     [this](const QString& date) { subRemoveRecurStr(date); });
}

bool Recurrence::TakeOutOf(const QStringList& dates, const DayRun::Step& step)
{
    DayRun run(g_dbPlanner, " in RecurForm, subRemoveRecurStr"_L1);
    const qsizetype done = run(dates, step);
    TellFailures(run, dates,
                 u"The recurring event could not be taken out of %1 of %2 days. It is kept, so that you can delete it "
                 "again."_s);
    return done == dates.size() && run.Failures() == 0;
}

// Unlike a removal, this leaves no empty line. What another user has written there meanwhile stays.
void Recurrence::TakeBackOf(const QString& date)
{
    const auto before = m_before.constFind(date);
    if (before == m_before.cend()) return;
    g_rsQMT.Seek(Equal, date);
    if (g_rsQMT.NoMatch()) return;
    if (g_rsQMT.Fields(TextField).toByteArray() != (before->isNull() ? m_text.Rtf() : m_text.AppendedTo(*before)))
        return subRemoveRecurStr(date);
    if (before->isNull()) return g_rsQMT.Delete();
    g_rsQMT.Edit();
    g_rsQMT.SetField(TextField, *before);
    g_rsQMT.Update();
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
    // An emptied day is stored as one blank.
    if (g_rsQMT.Fields(TextField).toByteArray() == schema::EmptiedNote) g_rsQMT.Delete();
}
