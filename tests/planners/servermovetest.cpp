#include "testmain.h"
#include "workgroup/networkoptionform.h"
#include "workgroupprogram.h"

// Moves the open planner to a server and back into a file by the network options, with a day locked and edited.
class ServerMoveTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<WorkgroupProgram> m_program;
    int m_count = 0;
    QString m_planner;

    // Runs the steps in the dialog and closes it.
    void InOptions(const std::function<void(NetworkOptionForm&)>& steps)
    {
        m_program->InWindow<NetworkOptionForm>("mnuNetworkOptions", [=](NetworkOptionForm& form) {
            steps(form);
            QTest::keyClick(&form, Qt::Key_Escape);
        });
    }
    static QPushButton& Button(const NetworkOptionForm& form, const char* name) { return In<QPushButton>(form, name); }
    static QLineEdit& Address(const NetworkOptionForm& form) { return In<QLineEdit>(form, "txtServer"); }

    // Answers the question. Returns the message after a Yes.
    SeenBox Move(const QString& address, int answer = msgbox::Yes)
    {
        SeenBox seen;
        InOptions([&](NetworkOptionForm& form) {
            Address(form).clear();
            QVERIFY(!Button(form, "btnMove").isEnabled());
            Address(form).setText(address);
            AnswerNextBox(answer);
            if (answer == msgbox::Yes) AnswerNextBox(msgbox::Ok, &seen);
            QTest::keyClick(&Button(form, "btnMove"), Qt::Key_Return);
        });
        return seen;
    }

    // By the command, which knows the servers of the person's settings.
    QByteArray Exported(const QString& planner) const
    {
        const QString config = m_program->folders.Path(u"config"_s), settings = config + u"/orrelin"_s;
        QDir().mkpath(settings);
        QFile::copy(::folders::WindowsDirectory() + u"/PLANNER.INI"_s, settings + u"/PLANNER.INI"_s);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, config);
        QProcess command;
        command.setProcessEnvironment(environment);
        command.setProcessChannelMode(QProcess::MergedChannels);
        command.start(QStringLiteral(EXPORT_COMMAND), {m_program->folders.Path(planner), u"--format"_s, u"txt"_s});
        return command.waitForFinished() ? command.readAll() : QByteArray();
    }

    QByteArray FileContent() const { return Content(m_program->folders.Path(m_program->File)); }
    QString StoredIn(const QString& file) const { return PlainText(m_program->Stored(file, m_program->Key)); }

private Q_SLOTS:
    void init()
    {
        m_planner = u"options%1"_s.arg(++m_count);
        ::setenv("PGPASSWORD", TestServer::Password, 1);
        m_program = std::make_unique<WorkgroupProgram>();
        m_program->MakePlanner(false);
        m_program->Start();
        m_program->Open(m_program->File, true);
        m_program->LockAndType(u"typed"_s);
    }
    void cleanup() { m_program.reset(); }

    void ThePlannerMovesAndTheWorkGoesOn()
    {
        const QString uri = TestServer::Get().Uri(m_planner);
        QCOMPARE(Move(uri).Text, u"The planner is on the server now."_s);
        QVERIFY(FileContent().startsWith("Orrelin planner link 1\n"));
        QCOMPARE(StoredIn(u"team.bak"_s), u"typed"_s);
        QCOMPARE(m_program->Box().Text(), u"typed"_s);
        QVERIFY(m_program->ShowsFree());
        m_program->LockAndType(u" and more"_s);
        m_program->PressLock();
        QCOMPARE(StoredIn(m_program->File), u"typed and more"_s);
        m_program->LockAndType(u", last"_s);
        const QString saved = m_program->folders.Path(u"saved.mdb"_s);
        for (const QString& said : {u"All that the planner holds is in\n"_s + saved, u"'saved.mdb' exists already."_s})
            InOptions([&](NetworkOptionForm& form) {
                QVERIFY(Address(form).isReadOnly() && Address(form).text() == uri);
                QVERIFY(!Button(form, "btnMove").isEnabled());
                SeenBox seen;
                AnswerNextFileDialog(saved);
                AnswerNextBox(msgbox::Ok, &seen);
                QTest::keyClick(&Button(form, "btnSaveToFile"), Qt::Key_Return);
                QCOMPARE(seen.Text, said);
            });
        QCOMPARE(StoredIn(u"saved.mdb"_s), u"typed and more, last"_s);
        QVERIFY(Exported(m_program->File).contains("typed and more, last")); // while it is open here
        m_program->Open(u"saved.mdb"_s, true);
        InOptions([&](NetworkOptionForm& form) {
            QVERIFY(Address(form).text().isEmpty() && !Address(form).isReadOnly());
            QVERIFY(!Button(form, "btnSaveToFile").isEnabled());
        });
    }

    void WhatCannotMoveStaysOpenAndWhole()
    {
        // %1 in an address stands for the planner's name. The part belongs to the expected message.
        const QString tcp = TestServer::Get().TcpUri(u"%1"_s);
        for (const auto& [what, address, hindrance, part] : Rows<QString, QByteArray, QString>{
                 {"no address", u"the server in the hall"_s, "", u"form postgresql:"_s},
                 {"no such server", u"postgresql://nowhere.invalid/office"_s, "", u"nowhere.invalid"_s},
                 {"wrong password", tcp, "password", u"password authentication failed"_s},
                 {"name taken", tcp, "taken", u"a planner of this name already"_s},
                 {"newer planner there", tcp, "newer", u"a planner of this name already"_s},
                 {"another desk", tcp, "open", u"already in use by"_s},
                 {"no", tcp, "no", u""_s}}) {
            const InRow row(this, what);
            if (hindrance == "password") ::setenv("PGPASSWORD", "guess", 1);
            if (hindrance == "taken" || hindrance == "newer") {
                const QString first = m_program->folders.Path(u"first.mdb"_s);
                DBEngine::CreateDatabase(first, {}).Close();
                DBEngine::MoveToServer(first, TestServer::Get().Uri(m_planner));
            }
            if (hindrance == "newer")
                TestServer::Get().Ask(
                    u"UPDATE orrelin_%1.\"planner format\" SET version = 2 RETURNING 1"_s.arg(m_planner));
            const QByteArray before = FileContent().left(16);
            std::optional<OtherProgram> desk;
            if (hindrance == "open")
                QCOMPARE(desk.emplace().Open(m_program->folders.Path(m_program->File), false), u"0"_s);
            const SeenBox seen = Move(address.arg(m_planner), hindrance == "no" ? msgbox::No : msgbox::Yes);
            desk.reset();
            QVERIFY2(seen.Text.contains(part), qPrintable(seen.Text));
            QVERIFY(HasPlanner());
            QCOMPARE(m_program->ShowsLocked(), hindrance == "no"); // after No, the person goes on typing
            QCOMPARE(m_program->Box().Text(), u"typed"_s);
            if (hindrance == "no") m_program->PressLock();
            m_program->LockAndType(u" and more"_s);
            m_program->PressLock();
            QCOMPARE(StoredIn(m_program->File), u"typed and more"_s);
            QCOMPARE(FileContent().left(16), before);
            QVERIFY(!QFile::exists(m_program->folders.Path(u"team.bak"_s)));
        }
    }
};

ORRELIN_TEST(ServerMoveTest)

#include "servermovetest.moc"
