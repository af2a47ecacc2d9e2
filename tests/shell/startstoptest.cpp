#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QScreen>

class StartStopTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    static void WriteIni(const QByteArray& content)
    {
        SetContent(folders::WindowsDirectory() + u"/PLANNER.INI"_s, content);
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        QDir().mkpath(folders::WindowsDirectory());
    }
    void cleanup() { m_program.reset(); }

    void AnExitWithNothingToSaveLogsTheCellsThatWereNeverLoaded()
    {
        m_program->Start();
        m_program->Exit();
        QCOMPARE(m_program->Log().count('\n'), 7);
        QVERIFY(m_program->Log().contains("Control array element '42' doesn't exist in MainForm, subExitProgram"));
        m_program->Start();
        QCOMPARE(m_program->Log(), QByteArray()); // each run starts an empty log
    }

    // A name that ends in "mdb" gets no extension, even without a dot.
    void TheExitSavesWhateverTheWayOut()
    {
        for (const int way : {Mainform::SessionEnds, Mainform::ProcessIsEnded}) {
            const QString name = u"%1mdb"_s.arg(way);
            m_program->Start();
            m_program->New(name);
            m_program->Type(20, u"first"_s);
            m_program->form->subExitProgram(way);
            QVERIFY(m_program->form->HasEnded());
            m_program->form.reset();
            QVERIFY(m_program->Stored(name, u"1999/3/19"_s).contains("first"));
        }
    }

    // If no earlier entry is visible, the oldest of the recent planners takes the third place.
    void TheExitWritesTheFirstVisibleRecentPlanner()
    {
        WriteIni("[MRU]\nMRU1=/a.mdb\nMRU2=/b.mdb\nMRU3=/c.mdb\nMRU4=/d.mdb\n");
        m_program->Start();
        for (const char* entry : {"mnuMRU(0)", "mnuMRU(1)", "mnuMRU(2)"})
            m_program->Entry(entry).setVisible(false);
        m_program->Exit();
        QCOMPARE(Ini("MRU", "MRU3"), u"/d.mdb"_s);
        QCOMPARE(Ini("MRU", "MRU2") + Ini("MRU", "MRU4"), u"/b.mdb/d.mdb"_s);
    }

    void TheWindowComesBackWhereItWas()
    {
        m_program->Start();
        m_program->form->move(60, 40);
        m_program->form->resize(640, 500);
        m_program->Exit();
        QCOMPARE(Ini("Mainform Dimension", "Left"), u"900"_s);
        QCOMPARE(Ini("Mainform Dimension", "Bottom"), u"8100"_s);
        m_program->Start();
        QCOMPARE(m_program->form->pos(), QPoint(60, 40));
        QCOMPARE(m_program->form->size(), QSize(640, 500));
    }

    void AWindowThatNobodyCouldReachIsBroughtBack()
    {
        for (const auto& [what, place] :
             Rows<QByteArray>{{"before every screen", "Left=-90000\nTop=900000\nRight=-75000\nBottom=910000\n"},
                              {"no numbers", "Left=left\nRight=right\n"}}) {
            const InRow row(this, what);
            WriteIni("[Mainform Dimension]\n" + place);
            Mainform form;
            form.Form_Load([](const QString&) {}, [] {});
            const QRect screen = form.screen()->availableGeometry();
            QVERIFY(screen.contains(form.pos()));
            QVERIFY(form.width() >= 480 && form.width() <= screen.width());
        }
    }

    void RubbishInTheSettingsIsSurvived()
    {
        static constexpr char raw[] = "[VI\0EW]\n\xff\xfe=\x80\nVIEWPREF\0=2\n";
        for (const QByteArray& ini :
             {"[VIEW]\nVIEWPREF=99999999999999999999\n[DAILY PANEL]\nFONTSIZE=2000000000\nFONT3D=-7\n"
              "FONTCOLOR=&HFFFFFFFFFFFFFFFF&\n[Mainform Dimension]\nLeft=-2147483648\nRight=1e99\nFONTNAME=" +
                  QByteArray(5000, 'x'),
              QByteArray("[DAILY PANEL]\nFONTSIZE=-5\nFONT3D=99\n[DEFAULT FONTS]\nFONTSIZE=0\n"
                         "[DISPLAY MONTH]\nFONTSIZE=0\n[Mainform Dimension]\nRight=-4\nBottom=-4\n"),
              QByteArray("[VIEW\nVIEWPREF=2\n[[[\n=\n=x\n\n]"), QByteArray(raw, sizeof raw - 1).repeated(100)}) {
            const InRow row(this, ini.constData());
            WriteIni(ini);
            m_program->Start();
            m_program->New(u"notes.mdb"_s);
            const bool isMonth = m_program->form->findChild<RichTextBox*>(u"tbDay(20)"_s) != nullptr;
            if (isMonth) m_program->Type(20, u"still here"_s);
            m_program->Exit();
            const QByteArray stored = m_program->Stored(u"notes.mdb"_s, u"1999/3/19"_s);
            QCOMPARE(stored.contains("still here"), isMonth);
        }
    }
};

ORRELIN_TEST(StartStopTest)
#include "startstoptest.moc"
