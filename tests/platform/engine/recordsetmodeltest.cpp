// Random calls on a recordset, each checked against a simple model of the rules: a sorted list of rows.
#include "enginetesting.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"
#include "testserver.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <optional>

namespace {
using namespace engineerrors;

const QString keyField = u"Alarm Date"_s;
const QString noteField = u"Alarm Note"_s;

struct ModelRow
{
    int id;
    QVariant key;
    QByteArray note;
};

// Descending keys, null keys last, equal keys by insertion.
bool ComesBefore(const ModelRow& a, const ModelRow& b)
{
    if (a.key != b.key) return b.key.isNull() || (!a.key.isNull() && a.key.toString() > b.key.toString());
    return a.id < b.id;
}

class Model
{
public:
    enum At
    {
        Nowhere,
        OnRow,
        Gone,
        Gap,
        AtBof,
        AtEof
    };
    enum Edit
    {
        None,
        Adding,
        Changing
    };

    std::vector<ModelRow> rows;
    At at = Nowhere;
    ModelRow place{};
    Edit edit = None;
    ModelRow buffer{};
    bool bof = true, eof = true, noMatch = false;

    int Seek(const QVariant& key)
    {
        edit = None;
        at = Gap;
        place = {0, key, {}};
        const auto found = std::ranges::find(rows, key, &ModelRow::key);
        noMatch = found == rows.end();
        if (!noMatch) Stand(*found);
        return 0;
    }
    int MoveToEnd(bool first)
    {
        edit = None;
        if (rows.empty()) bof = eof = true;
        if (rows.empty()) at = Nowhere;
        if (rows.empty()) return NoCurrentRecord;
        Stand(first ? rows.front() : rows.back());
        return 0;
    }
    int Step(bool forward)
    {
        edit = None;
        if (at == Nowhere || at == (forward ? AtEof : AtBof)) return NoCurrentRecord;
        const bool wasEmpty = bof && eof;
        const auto next = Neighbour(forward);
        if (next) Stand(*next);
        if (next) return 0;
        if (wasEmpty) return NoCurrentRecord;
        bof = rows.empty() || !forward;
        eof = rows.empty() || forward;
        at = rows.empty() ? Nowhere : forward ? AtEof : AtBof;
        return 0;
    }
    int AddNew()
    {
        edit = Adding;
        buffer = {};
        return 0;
    }
    int StartEdit()
    {
        if (const int error = Missing()) return error;
        edit = Changing;
        buffer = place;
        return 0;
    }
    int Set(const QVariant& key, const QByteArray& note)
    {
        if (edit == None) return NoUpdatePending;
        buffer.key = key;
        buffer.note = note;
        return 0;
    }
    int Update()
    {
        if (edit == None) return NoUpdatePending;
        if (edit == Changing) std::erase_if(rows, [&](const ModelRow& row) { return row.id == place.id; });
        if (edit == Changing) Stand(buffer);
        if (edit == Adding) buffer.id = ++m_lastId;
        if (bof && eof) bof = eof = false;
        rows.push_back(buffer);
        std::ranges::sort(rows, ComesBefore);
        edit = None;
        return 0;
    }
    int Cancel() { return std::exchange(edit, None) == None ? NoUpdatePending : 0; }
    int Delete()
    {
        if (const int error = Missing()) return error;
        edit = None;
        std::erase_if(rows, [&](const ModelRow& row) { return row.id == place.id; });
        at = Gone;
        return 0;
    }
    int Missing() const { return at == Gone ? RecordDeleted : at == OnRow ? 0 : NoCurrentRecord; }

private:
    void Stand(const ModelRow& row)
    {
        at = OnRow;
        place = row;
        bof = eof = false;
    }
    std::optional<ModelRow> Neighbour(bool forward) const
    {
        const bool fromEnd = at == AtBof || at == AtEof;
        const auto beyond = [&](const ModelRow& row) {
            return fromEnd || (forward ? ComesBefore(place, row) : ComesBefore(row, place));
        };
        if (forward) {
            const auto found = std::ranges::find_if(rows, beyond);
            return found == rows.end() ? std::nullopt : std::optional(*found);
        }
        const auto found = std::find_if(rows.rbegin(), rows.rend(), beyond);
        return found == rows.rend() ? std::nullopt : std::optional(*found);
    }

    int m_lastId = 0;
};
} // namespace

class RecordsetModelTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    Database m_database;
    Recordset m_real;
    Model m_model;
    QRandomGenerator m_random;
    int m_count = 0;

    QVariant AnyKey()
    {
        const int number = static_cast<int>(m_random.bounded(6));
        return number == 0 ? QVariant() : QVariant(u"1999/1/%1"_s.arg(number));
    }

    std::pair<int, int> Seek()
    {
        const QVariant key = AnyKey();
        return {ErrorOf([&] { m_real.Seek(u"="_s, key); }), m_model.Seek(key)};
    }
    std::pair<int, int> Set()
    {
        const QVariant key = AnyKey();
        const QByteArray note = QByteArray::number(m_random.generate());
        return {ErrorOf([&] {
                    m_real.SetField(noteField, note);
                    m_real.SetField(keyField, key);
                }),
                m_model.Set(key, note)};
    }
    // The errors of the recordset and of the model.
    std::pair<int, int> Act()
    {
        switch (m_random.bounded(13)) {
        case 0:
            return {ErrorOf([&] { m_real.MoveFirst(); }), m_model.MoveToEnd(true)};
        case 1:
            return {ErrorOf([&] { m_real.MoveLast(); }), m_model.MoveToEnd(false)};
        case 2:
            return {ErrorOf([&] { m_real.MoveNext(); }), m_model.Step(true)};
        case 3:
            return {ErrorOf([&] { m_real.MovePrevious(); }), m_model.Step(false)};
        case 4:
            return {ErrorOf([&] { m_real.AddNew(); }), m_model.AddNew()};
        case 5:
            return {ErrorOf([&] { m_real.Edit(); }), m_model.StartEdit()};
        case 6:
            return {ErrorOf([&] { m_real.CancelUpdate(); }), m_model.Cancel()};
        case 7:
            return {ErrorOf([&] { m_real.Delete(); }), m_model.Delete()};
        case 8:
            return Seek();
        case 9:
        case 10:
            return Set();
        default:
            return {ErrorOf([&] { m_real.Update(); }), m_model.Update()};
        }
    }

    void Compare()
    {
        QCOMPARE(m_real.BOF(), m_model.bof);
        QCOMPARE(m_real.EOF_(), m_model.eof);
        QCOMPARE(m_real.NoMatch(), m_model.noMatch);
        QVariant key;
        QByteArray note;
        const int error = ErrorOf([&] {
            key = m_real.Fields(keyField);
            note = m_real.Fields(noteField).toByteArray();
        });
        const bool pending = m_model.edit != Model::None;
        QCOMPARE(error, pending ? 0 : m_model.Missing());
        if (error != 0) return;
        QCOMPARE(key, pending ? m_model.buffer.key : m_model.place.key);
        QCOMPARE(note, pending ? m_model.buffer.note : m_model.place.note);
    }

    void ObeyTheRules(quint32 seed)
    {
        m_random.seed(seed);
        m_model = {};
        m_database =
            MakeStore(m_folder.filePath(u"%1.mdb"_s.arg(++m_count)), {u"Alarm Table"_s,
                                                                      {{keyField, dbText, 15}, {noteField, dbMemo}},
                                                                      {{u"AlarmKey"_s, u"-Alarm Date"_s, false}}});
        m_real = m_database.OpenTable(u"Alarm Table"_s);
        m_real.SetIndex(u"AlarmKey"_s);
        for (int call = 0; call < 400; ++call) {
            const auto [real, model] = Act();
            QVERIFY2(real == model, qPrintable(u"call %1: %2, not %3"_s.arg(call).arg(real).arg(model)));
            Compare();
            if (QTest::currentTestFailed()) QFAIL(qPrintable(u"after call %1"_s.arg(call)));
        }
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }

    void AnyCallsObeyTheRules()
    {
        for (quint32 seed = 1; seed <= 8 && !QTest::currentTestFailed(); ++seed) {
            const InRow inRow(this, u"seed %1"_s.arg(seed));
            ObeyTheRules(seed);
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(RecordsetModelTest)
#include "recordsetmodeltest.moc"
