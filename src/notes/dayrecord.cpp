#include "notes/dayrecord.h"

#include "plannerfile/backups.h"
#include "plannerfile/schema.h"
#include "platform/engine/engineerrors.h"
#include "platform/runtime/errortail.h"
#include "state/plannerstate.h"

#include <optional>
#include <utility>

namespace {
using namespace schema;

// Keeps the format of older versions, whose engine locked pages: padding kept two days off one page.
constexpr int PaddingDots = 1005;
} // namespace

bool DayRecord::Seek(const QString& key, QLatin1StringView literal)
{
    if (Holds(key)) return true;
    m_held = false;
    m_key = key;
    m_record = schema::OpenNotes(g_dbPlanner);
    m_record.Seek(Equal, key);
    return !m_record.NoMatch() || !MakeNew(key, literal);
}

// False if another user was quicker and made the record.
bool DayRecord::MakeNew(const QString& key, QLatin1StringView literal)
{
    std::optional<RunTimeError> failure;
    try {
        Make(key);
    } catch (const RunTimeError& error) {
        failure = error;
    }
    m_record.Seek(Equal, key);
    if (!failure) return true;
    if (m_record.NoMatch()) throw *failure;
    LogError(*failure, literal);
    return false;
}

void DayRecord::Make(const QString& key)
{
    m_record.AddNew();
    m_record.SetField(DateField, key);
    m_record.SetField(TextField, EmptiedNote);
    m_record.SetField(PaddingField, QString(PaddingDots, u'.'));
    m_record.Update();
}

QByteArray DayRecord::Text() const
{
    return m_record.Fields(TextField).toByteArray();
}

void DayRecord::Edit()
{
    if (m_held) return;
    m_record.Edit();
    m_locked = m_tried = Text();
    m_held = true;
    m_broken = false;
}

void DayRecord::TakeAgain()
{
    m_record = schema::OpenNotes(g_dbPlanner);
    m_record.Seek(Equal, m_key);
    if (m_record.NoMatch()) {
        Make(m_key);
        m_record.Seek(Equal, m_key);
    }
    m_record.Edit();
    if (Text() == m_locked || Text() == m_tried) {
        m_locked = Text();
        return;
    }
    m_record.CancelUpdate();
    throw RunTimeError{engineerrors::DataChanged,
                       u"Another user has changed this day while the connection was broken."_s};
}

void DayRecord::Commit(const QByteArray& rtf)
{
    try {
        if (m_broken) TakeAgain();
        BackUpBeforeSave();
        m_tried = rtf.isEmpty() ? EmptiedNote : rtf;
        m_record.SetField(TextField, m_tried);
        m_record.Update();
    } catch (const RunTimeError& error) {
        m_broken = m_broken || error.Number == engineerrors::BrokenConnection;
        throw;
    }
    Close();
}

QByteArray DayRecord::TakeTheirs()
{
    m_record = schema::OpenNotes(g_dbPlanner);
    m_record.Seek(Equal, m_key);
    return m_locked = m_record.NoMatch() ? QByteArray() : Text();
}

void DayRecord::GiveUp()
{
    m_record.CancelUpdate();
    Close();
}

void DayRecord::Close()
{
    m_held = m_broken = false;
    m_record = Recordset();
}

bool IsRefusal(int error)
{
    return error == engineerrors::CouldNotSave || error == engineerrors::DataChanged ||
           error == engineerrors::RecordLocked;
}
