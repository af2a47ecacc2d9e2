// The program with a workgroup's planner, in a file or on a server. It shows March 1999: the 17th is in cell 18.
#pragma once

#include "plannerfile/knownservers.h"
#include "planners.h"
#include "platform/controls/picturebutton.h"
#include "platform/engine/testserver.h"
#include "program.h"

class WorkgroupProgram : public Program
{
public:
    static constexpr int Cell = 18;
    QString File = u"team.mdb"_s;
    const QString Key = u"1999/3/17"_s;

    // Writes as another user, by a separate connection.
    void WriteAs(const QString& key, const QByteArray& text) const
    {
        Database planner = DBEngine::OpenDatabase(folders.Path(File));
        Recordset notes = Days(planner);
        Write(notes, key, text);
    }

    // Makes an empty planner. On a server the file is a link to it; returns its name there.
    QString MakePlanner(bool onServer) const
    {
        ::MakePlanner(folders.Path(File));
        if (!onServer) return {};
        const QString name = TestServer::Get().Take(folders.Path(File));
        RememberServer(TestServer::Get().Uri(name));
        return name;
    }

    using Program::Box;
    RichTextBox& Box() const { return Box(Cell); }
    PictureButton& Lock() const { return Find<PictureButton>("picLock"); }
    bool ShowsLocked() const { return Lock().Visible(1) && !Lock().Visible(0); }
    bool ShowsFree() const { return Lock().Visible(0) && !Lock().Visible(1); }
    // A box without a queued answer fails the test instead of blocking it.
    static void ExpectNoBox(const QWidget* but = nullptr)
    {
        OnNextModal([but](QWidget* box) { return box != but; },
                    [](QWidget*) { QTest::qFail("a box came that was not expected", __FILE__, __LINE__); });
    }
    void PressLock() const
    {
        ExpectNoBox();
        QTest::mouseClick(&Lock(), Qt::LeftButton);
        if (WaitingAnswers() > 0) support::g_answers.pop_back();
    }
    // Presses the lock and answers the message. Returns its text.
    QString PressLockAndHear(int answer = msgbox::Ok) const
    {
        SeenBox seen;
        AnswerNextBox(answer, &seen);
        PressLock();
        Activate();
        return WaitingAnswers() ? u"nothing was said"_s : seen.Text;
    }

    void LockAndType(const QString& text) const
    {
        Click(Cell);
        PressLock();
        QVERIFY(ShowsLocked());
        TypeOn(text);
    }
    void TypeOn(const QString& text) const
    {
        QTest::keyClick(&Box(), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&Box(), text);
    }
};
