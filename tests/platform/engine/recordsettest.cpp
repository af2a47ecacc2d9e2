#include "enginetesting.h"
#include "failingstore.h"
#include "platform/engine/engineerrors.h"
#include "testmain.h"
#include "testserver.h"

#include <QDateTime>
#include <QTemporaryDir>

#include <cmath>

using namespace engineerrors;

// All rules hold in a file and on a server.
class RecordsetTest : public QObject
{
    Q_OBJECT

    const QString m_key = u"1999/3/7"_s;
    QTemporaryDir m_folder;
    QString m_path;
    Database m_database;
    Recordset m_days;
    int m_count = 0;

    static bool IsOnServer()
    {
        QFETCH_GLOBAL(bool, onServer);
        return onServer;
    }

private Q_SLOTS:
    void initTestCase_data() { AddStores(); }

    void init()
    {
        m_path = m_folder.filePath(u"%1.mdb"_s.arg(++m_count));
        m_days = Recordset();
        m_database = MakeStore(m_path, DayTable());
        m_days = Days(m_database);
    }

    void ValuesComeBackAsTheyWere()
    {
        const QString memo = u"qmtText"_s;
        const std::tuple<const char*, QString, QVariant> rows[] = {
            {"NUL", memo, QVariant(QByteArray("a\0b\xff\xc3", 5))},
            {"number", memo, QVariant(QByteArray("0012.50"))},
            {"exponent", memo, QVariant(QByteArray(" 1e3 "))},
            {"empty", memo, QVariant(QByteArray(""))},
            {"long", memo, QVariant(QByteArray(3000000, 'x'))},
            {"text", u"qmtDate"_s, QVariant(u"é\"'; 日本"_s)},
            {"single", u"QMTFONTSIZE"_s, QVariant(8.25f)},
            {"boolean", u"qmtFontBold"_s, QVariant(true)},
            {"long number", u"qmtFontColor"_s, QVariant(INT_MIN)},
            {"date", u"Database Date"_s, QVariant(QDateTime(QDate(1999, 3, 7), QTime(13, 5, 6, 7)))},
            {"null", memo, QVariant()},
        };
        for (const auto& [name, field, value] : rows) {
            const InRow inRow(this, name);
            m_days.AddNew();
            m_days.SetField(field, value);
            m_days.Update();
            m_database = DBEngine::OpenDatabase(m_path);
            m_days = Days(m_database);
            QCOMPARE(m_days.Fields(field), value);
            QCOMPARE(m_days.Fields(field).typeId(), value.typeId());
            m_days.Edit(); // Edit compares the row with the copy
            m_days.Update();
        }
    }

    void FieldsRefuseWhatTheyCannotHold()
    {
        QCOMPARE(ErrorOf([&] { m_days.SetField(u"qmtDate"_s, m_key); }), NoUpdatePending);
        m_days.AddNew();
        QCOMPARE(ErrorOf([&] { m_days.SetField(u"qmtDate"_s, QString(16, u'9')); }), FieldTooSmall);
        QCOMPARE(ErrorOf([&] { m_days.SetField(u"qmtFontColor"_s, u"red"_s); }), TypeMismatch);
        QCOMPARE(ErrorOf([&] { m_days.SetField(u"nothing"_s, 1); }), ItemNotFound);
        m_days.SetField(u"qmtFontSize"_s, std::nanf(""));
        m_days.SetField(u"qmtDate"_s, QString(QChar(0xd800)));
        m_days.Update();
        m_days.MoveFirst();
        m_days.Edit(); // neither value may look changed by another user
        QCOMPARE(ErrorOf([&] { m_days.SetIndex(u"nothing"_s); }), ItemNotFound);
        QCOMPARE(ErrorOf([&] { m_database.OpenTable(u"Alarm Table"_s); }), NoTable);
    }

    void TablesAreReadAgainAsTheyWereMade()
    {
        const TableDef odd = {u"a \"b\" 'c' [d]; %"_s,
                              {{u"x \"y\""_s, dbText, 3}, {u"it's"_s, dbMemo}},
                              {{u"k \"1\""_s, u"x \"y\""_s, true}, {u"k2"_s, u"-it's"_s, false}}};
        m_database.Append(odd);
        QCOMPARE(ErrorOf([&] { m_database.Append(odd); }), TableExists);
        Database again = DBEngine::OpenDatabase(m_path);
        QCOMPARE(again.TableNames(), QStringList({DayTable().Name, odd.Name}));
        Recordset rows = again.OpenTable(odd.Name.toUpper());
        rows.SetIndex(u"k \"1\""_s);
        rows.AddNew();
        rows.SetField(u"x \"y\""_s, u"abc"_s);
        QCOMPARE(ErrorOf([&] { rows.SetField(u"x \"y\""_s, u"abcd"_s); }), FieldTooSmall);
        rows.Update();
        rows.AddNew();
        rows.SetField(u"x \"y\""_s, u"abd"_s);
        rows.SetField(u"it's"_s, QByteArray("b"));
        rows.Update();
        rows.MoveFirst();
        QCOMPARE(rows.Fields(u"x \"y\""_s).toString(), u"abc"_s);
        rows.SetIndex(u"k2"_s);
        QCOMPARE(rows.Fields(u"x \"y\""_s).toString(), u"abd"_s);
    }

    void AFailedUpdateKeepsTheTyping()
    {
        Write(m_days, m_key, "first");
        Write(m_days, u"1999/3/8"_s, "other");
        m_days.MoveFirst();
        m_days.Edit();
        m_days.SetField(u"qmtDate"_s, m_key);
        QCOMPARE(ErrorOf([&] { m_days.Update(); }), DuplicateKey);
        QCOMPARE(m_days.Fields(u"qmtDate"_s).toString(), m_key);
        Database second = DBEngine::OpenDatabase(m_path);
        Recordset others = Days(second);
        QCOMPARE(Read(others, u"1999/3/8"_s), QByteArray("other")); // reading needs no lock
        QCOMPARE(ErrorOf([&] { others.Edit(); }), RecordLocked);    // the failed Update keeps its lock
        QCOMPARE(ErrorOf([&] { others.Delete(); }), RecordLocked);
        m_days.SetField(u"qmtDate"_s, u"1999/3/9"_s);
        m_days.Update();
        QCOMPARE(ErrorOf([&] { others.Edit(); }), DataChanged); // the lock is free, but the record has changed
    }

    void NobodyWritesOverAnother()
    {
        Write(m_days, m_key, "mine");
        Database second = DBEngine::OpenDatabase(m_path);
        Recordset others = Days(second);
        Write(m_days, m_key, "changed");
        QCOMPARE(ErrorOf([&] { others.Delete(); }), DataChanged);
        QCOMPARE(ErrorOf([&] { others.Edit(); }), DataChanged);
        m_days.Edit(); // the refused calls kept no lock
        m_days.Delete();
        Write(m_days, m_key, "mine"); // an equal record, but another one
        QCOMPARE(ErrorOf([&] { others.Edit(); }), RecordDeleted);
    }

    void AnEditEndsWithItsRecordset()
    {
        const std::function<void()> ways[] = {[&] { m_days.Seek(u"="_s, u"absent"_s); },
                                              [&] { m_days.MoveFirst(); },
                                              [&] { m_days.FindLast(u"nonsense"_s); },
                                              [&] { m_days.SetIndex({}); },
                                              [&] { m_days.Close(); },
                                              [&] { m_days = Recordset(); }};
        for (int way = 0; way < int(std::size(ways)); ++way) {
            const InRow inRow(this, QString::number(way));
            m_days = Days(m_database);
            Write(m_days, m_key, "text");
            m_days.Seek(u"="_s, m_key);
            m_days.Edit();
            m_days.SetField(u"qmtText"_s, QByteArray("lost"));
            ErrorOf(ways[way]);
            if (way < 4) QCOMPARE(ErrorOf([&] { m_days.Update(); }), NoUpdatePending);
            if (way == 4) QCOMPARE(ErrorOf([&] { m_days.Update(); }), Closed);
            Database second = DBEngine::OpenDatabase(m_path);
            Recordset others = Days(second);
            others.Edit();
            QCOMPARE(others.Fields(u"qmtText"_s).toByteArray(), QByteArray("text"));
        }
    }

    void CriteriaFindTheirRecords()
    {
        // found: from the last record on, so the smallest key first
        const std::pair<QString, QString> rows[] = {
            {u"\"*milk*\""_s, u"ac"_s},
            {u"'*MILK*'"_s, u"ac"_s},
            {u"\"buy milk\""_s, u"a"_s},
            {u"\"?uy ????\""_s, u"a"_s},
            {u"\"*CAFÉ*\""_s, u"b"_s},
            {u"\"*50%*\""_s, u"b"_s},
            {u"\"*_*\""_s, u""_s},
            {u"\"*hidden*\""_s, u"d"_s},
            {u"'*don''t*'"_s, u"c"_s},
            {u"\"##[%]*\""_s, u"b"_s},
            {u"\"*[d-f][a-cO]n't*\""_s, u"c"_s},
            {u"'[!b-h5]*'"_s, u"cd"_s},
            {u"\"*[*]*\""_s, u""_s},
            {u"'[x!-]*'"_s, u"d"_s},
            {u"'*[]milk]*'"_s, u""_s},
            {u"'*caf[à-ï]'"_s, u"b"_s},
            {u"\"*i*m*d*t*k*\""_s, u"c"_s},
            {u"\"*\""_s, u"abcd"_s},
        };
        for (const auto& [pattern, found] : rows) {
            const InRow inRow(this, pattern);
            Write(m_days, u"a"_s, "Buy milk");
            Write(m_days, u"b"_s, "50% off at the café");
            Write(m_days, u"c"_s, "I'm sure: don't drink mmilk");
            Write(m_days, u"d"_s, QByteArray("x\0Hidden", 8));
            m_days.AddNew(); // a record with neither key nor text
            m_days.Update();
            Recordset walk = m_database.CreateDynaset(u"QMT Table"_s);
            const QString criterion = u"[qmtText] LIKE "_s + pattern;
            QString keys;
            for (walk.FindLast(criterion); !walk.NoMatch(); walk.FindPrevious(criterion))
                keys += walk.Fields(u"qmtDate"_s).toString();
            QCOMPARE(keys, found);
            QCOMPARE(ErrorOf([&] { walk.Fields(u"qmtDate"_s); }), NoCurrentRecord);
            walk.FindPrevious(criterion); // a search after the end of the search
            QVERIFY(walk.NoMatch());
        }
    }

    void ACriterionThatCannotBeReadIsNoMatch()
    {
        const std::pair<QString, int> rows[] = {
            {u"[qmtText] LIKE '*don't*'"_s, UnparsableCriterion},
            {u"[qmtText] LIKE '*[a-*'"_s, UnparsableCriterion},
            {u"[qmtText] LIKE '[z-a]'"_s, UnparsableCriterion},
            {u"LIKE 'x'"_s, UnparsableCriterion},
            {u"[nothing] LIKE 'x'"_s, ItemNotFound},
        };
        for (const auto& [criterion, error] : rows) {
            const InRow inRow(this, criterion);
            Write(m_days, m_key, "x");
            QCOMPARE(ErrorOf([&] { m_days.FindLast(criterion); }), error);
            QVERIFY(m_days.NoMatch());
            QCOMPARE(ErrorOf([&] { m_days.Delete(); }), NoCurrentRecord);
        }
    }

    void TransactionsKeepAllOrNothing()
    {
        Database second = DBEngine::OpenDatabase(m_path);
        Recordset others = Days(second);
        {
            WriteTransaction abandoned(m_database);
            Write(m_days, m_key, "never");
            QCOMPARE(ErrorOf([&] { WriteTransaction nested(m_database); }), CouldNotSave);
        }
        QCOMPARE(Read(others, m_key), QByteArray("absent"));
        WriteTransaction kept(m_database);
        Write(m_days, m_key, "one");
        m_days.AddNew();
        m_days.SetField(u"qmtDate"_s, m_key);
        QCOMPARE(ErrorOf([&] { m_days.Update(); }), DuplicateKey);
        Write(m_days, u"1999/3/8"_s, "two");
        QCOMPARE(Read(others, m_key), QByteArray("absent"));
        kept.Commit();
        QCOMPARE(Read(others, m_key), QByteArray("one"));
        QCOMPARE(Read(others, u"1999/3/8"_s), QByteArray("two"));
    }

    void AReadSeesOneStateAndAWriteInsideIsKept()
    {
        Write(m_days, m_key, "old");
        Database second = DBEngine::OpenDatabase(m_path);
        Recordset others = Days(second);
        {
            ReadTransaction outer(m_database);
            ReadTransaction inner(m_database);
            QCOMPARE(Read(m_days, m_key), QByteArray("old"));
            // In a file a reader blocks the writer. On a server the reader keeps its older state.
            QCOMPARE(ErrorOf([&] { Write(others, m_key, "new"); }), IsOnServer() ? 0 : CouldNotSave);
            if (!IsOnServer()) others.CancelUpdate();
            QCOMPARE(Read(m_days, m_key), QByteArray("old"));
            QCOMPARE(ErrorOf([&] { Write(m_days, m_key, "mine"); }), IsOnServer() ? DataChanged : 0);
            Write(others, m_key, "new");
            QCOMPARE(Read(m_days, m_key), QByteArray("new"));
        }
        Write(others, m_key, "newer"); // no transaction is left open
    }

    void AFailingStoreLosesNoTyping()
    {
        const std::tuple<const char*, int, QByteArray> rows[] = {
            {"before", FailurePlan::Before, "old"},
            {"after", FailurePlan::After, "new"},
            {"for ever", FailurePlan::ForEver, "old"},
        };
        for (const auto& [name, when, stored] : rows) {
            const InRow inRow(this, name);
            Write(m_days, m_key, "old");
            const FailingStores failing;
            Database database = DBEngine::OpenDatabase(m_path);
            Recordset days = Days(database);
            days.Edit();
            days.SetField(u"qmtText"_s, QByteArray("new"));
            *failing.plan = {1, FailurePlan::When(when), {DiskFull, {}}, u"Replace"_s};
            QCOMPARE(ErrorOf([&] { days.Update(); }), DiskFull);
            QCOMPARE(days.Fields(u"qmtText"_s).toByteArray(), QByteArray("new"));
            QCOMPARE(Read(m_days, m_key), stored);
            const int again[] = {0, DataChanged, DiskFull};
            QCOMPARE(ErrorOf([&] { days.Update(); }), again[when]);
        }
    }

    void ObjectsThatAreNotThereSaySo()
    {
        QCOMPARE(ErrorOf([] { Recordset().MoveFirst(); }), errors::ObjectNotSet);
        QCOMPARE(ErrorOf([] { Database().OpenTable({}); }), errors::ObjectNotSet);
        const ReadTransaction nothing{Database()};
        Database copy = m_database;
        m_database.Close();
        QCOMPARE(ErrorOf([&] { copy.TableNames(); }), Closed);
        Write(m_days, m_key, "still open"); // the last recordset keeps the file open
        if (!IsOnServer()) QCOMPARE(ErrorOf([&] { DBEngine::DeleteDatabase(m_path); }), InUse);
        m_days.Close();
        DBEngine::DeleteDatabase(m_path);
        QVERIFY(!QFile::exists(m_path));
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(RecordsetTest)
#include "recordsettest.moc"
