#include "editing/zoomboxform.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QLabel>

// Zooming the notes of each view; today is 17 March 1999.
class ZoomTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;
    const QString m_file = u"notes.mdb"_s;

    static void Zoom(const RichTextBox& over, int turn) { TurnWheel(*over.viewport(), turn, Qt::ControlModifier); }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void monthAndWeekKeepTheirOwn()
    {
        struct View
        {
            const char* entry;
            const char* key;
            int cell;
            int last; // another cell of the view
        };
        constexpr View Views[] = {{"mnuWeekView", "WEEKZOOM", 39, 42}, {"mnuMonthView", "MONTHZOOM", 18, 35}};
        m_program->New(m_file, true); // the unlocked cells of a workgroup take no other key
        for (const View& view : Views) {
            m_program->Trigger(view.entry);
            RichTextBox& box = m_program->Box(view.cell);
            QCOMPARE(box.Zoom(), 100);
            m_program->Click(view.cell);
            QTest::keyClick(&box, Qt::Key_Equal, Qt::ControlModifier);
            QCOMPARE(box.Zoom(), 110);
            QCOMPARE(m_program->Bottom().Caption(), u"MARCH 1999 - Shown at 110 %"_s);
            QTest::keyClick(m_program->form.get(), Qt::Key_Plus, Qt::ControlModifier);
            Zoom(box, 60);
            QCOMPARE(m_program->Box(view.last).Zoom(), 125);
            Zoom(box, 60);
            QCOMPARE(m_program->Box(view.last).Zoom(), 150);
            Zoom(box, -240);
            QCOMPARE(Ini("VIEW", view.key), u"110"_s);
        }
        m_program->Exit();
        m_program->Start();
        QCOMPARE(m_program->Box(18).Zoom(), 110);
        QTest::keyClick(m_program->form.get(), Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(m_program->Box(18).Zoom(), 100);
        m_program->Open(m_file, true);
        m_program->Trigger("mnuWeekView");
        QCOMPARE(m_program->Box(39).Zoom(), 110);
    }

    void theDayViewKeepsItsOwnOutsideTheNote()
    {
        SetIni("VIEW", "DAYZOOM", "999");
        m_program->New(m_file);
        m_program->Type(18, u"tea"_s);
        const QByteArray note = m_program->Box(18).TextRTF();
        for (const int percent : {300, 250}) {
            m_program->InWindow<ZoomBoxForm>("mnuDayView", [percent](ZoomBoxForm& form) {
                QCOMPARE(form.tbZoom().Zoom(), percent);
                QCOMPARE(In<QLabel>(form, "lblZoom").text(), u"Shown at %1 %"_s.arg(percent));
                QCOMPARE(In<QLabel>(form, "lblHint").height(), form.fontMetrics().height()); // one line
                Zoom(form.tbZoom(), 120);
                QCOMPARE(form.tbZoom().Zoom(), 300);
                Activate(form);
                QTest::keyClick(&form.tbZoom(), Qt::Key_Minus, Qt::ControlModifier);
                QTest::keyClicks(&form.tbZoom(), u"x"_s);
                if (percent == 250) QTest::keyClick(&form.tbZoom(), Qt::Key_0, Qt::ControlModifier);
                QCOMPARE(In<QLabel>(form, "lblZoom").isVisible(), percent != 250);
                Press(form, "btnOk");
            });
        }
        QCOMPARE(m_program->Box(18).TextRTF(), QByteArray(note).replace("tea", "xxtea"));
        QCOMPARE(Ini("VIEW", "DAYZOOM"), u"100"_s);
        QCOMPARE(m_program->Box(18).Zoom(), 100);
    }
};

ORRELIN_TEST(ZoomTest)
#include "zoomtest.moc"
