#include "files.h"
#include "plannerfile/schema.h"
#include "platform/engine/dbengine.h"
#include "testmain.h"

#include <QDir>
#include <QMimeDatabase>
#include <QTemporaryDir>

// The type of our files on a desktop that knows our types and all the usual ones.
class FileTypeTest : public QObject
{
    Q_OBJECT

    const QTemporaryDir& m_data;
    const QString m_planner = u"application/x-orrelin-planner"_s;
    const QString m_link = m_planner + u"-link"_s;

    QString Write(const QString& name, const QByteArray& content) const
    {
        SetContent(m_data.filePath(name), content);
        return m_data.filePath(name);
    }

    QByteArray Planner() const
    {
        const QString path = m_data.filePath(u"made"_s);
        QFile::remove(path);
        DBEngine::CreateDatabase(path, schema::Locale).Append(schema::NotesTable());
        return Content(path);
    }

public:
    explicit FileTypeTest(const QTemporaryDir& data) : m_data(data) {}

private Q_SLOTS:
    void AFileGoesByItsContent()
    {
        const QByteArray planner = Planner(), link("Orrelin planner link 1\npostgresql://desk1/office\n");
        const QByteArray otherProgram = QByteArray(planner).replace(68, 4, QByteArray(4, '\0'));
        const QString other = u"application/vnd.ms-access"_s;
        const std::tuple<const char*, QString, QByteArray, QString> rows[] = {
            {"planner", u"notes.mdb"_s, planner, m_planner},
            {"large letters", u"NOTES.MDB"_s, planner, m_planner},
            {"no extension", u"notes"_s, planner, m_planner},
            {"link", u"team.mdb"_s, link, m_link},
            {"link without extension", u"team"_s, link, m_link},
            {"database of another engine", u"a.mdb"_s, QByteArray("\0\1\0\0Standard Jet DB\0", 20), other},
            {"text", u"text.mdb"_s, "Dear Ann,\n", other},
            {"database of another program", u"other.mdb"_s, otherProgram, other},
            {"the same by its own name", u"b.sqlite3"_s, otherProgram, u"application/vnd.sqlite3"_s},
        };
        for (const auto& [row, name, content, type] : rows) {
            const InRow inRow(this, row);
            QCOMPARE(QMimeDatabase().mimeTypeForFile(Write(name, content)).name(), type);
        }
    }

    void TheDesktopEntryTakesThemAll()
    {
        const QByteArray entry = Content(QStringLiteral(PACKAGING_FOLDER "/org.orrelin.Orrelin.desktop"));
        for (const QString& type : {m_planner, m_link}) {
            QVERIFY(QMimeDatabase().mimeTypeForName(type).isValid());
            QVERIFY(entry.contains(type.toUtf8() + ';'));
        }
    }
};

static const Runnable runFileTypeTest("FileTypeTest", [](int argc, char** argv) {
    // One folder of types, as after the package's installation.
    const QTemporaryDir data;
    const QString types = data.filePath(u"mime/packages/"_s);
    const QString usual = u"freedesktop.org.xml"_s, ours = u"org.orrelin.Orrelin.xml"_s;
    if (!QDir().mkpath(types) || !QFile::copy(u"/usr/share/mime/packages/"_s + usual, types + usual) ||
        !QFile::copy(QStringLiteral(PACKAGING_FOLDER "/") + ours, types + ours) ||
        QProcess::execute(u"update-mime-database"_s, {data.filePath(u"mime"_s)}) != 0)
        qFatal("the types could not be installed");
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    qputenv("XDG_DATA_DIRS", data.path().toUtf8());
    QCoreApplication application(argc, argv);
    FileTypeTest test(data);
    return QTest::qExec(&test, argc, argv);
});

#include "filetypetest.moc"
