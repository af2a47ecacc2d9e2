#include "errorof.h"
#include "files.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/commondialog.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "support.h"
#include "testmain.h"

#include <QLabel>
#include <QMouseEvent>
#include <QScreen>

class DesktopDialogTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }

    static int NumberOf(CommonDialog& dialog, int action)
    {
        return ErrorOf([&] { dialog.Action(action); });
    }

    CommonDialog PlannerDialog() const
    {
        CommonDialog dialog(nullptr);
        dialog.InitDir = m_folder.path();
        dialog.Filter = u"Planner Files (*.mdb)|*.mdb|All Files (*.*)|*.*"_s;
        dialog.CancelError = true;
        return dialog;
    }

private Q_SLOTS:
    void init()
    {
        for (const char* name : {"Alpha.MDB", "beta.mdb", "notes.txt", "README"})
            SetContent(Path(QString::fromLatin1(name)), {});
    }
    void cleanup()
    {
        DropAnswers();
        QDir(m_folder.path()).removeRecursively();
        QVERIFY(QDir().mkpath(m_folder.path()));
    }

    void BoxesAnswer()
    {
        // key 0 stands for the close box
        const std::tuple<const char*, int, int, int, QString> rows[] = {
            {"ok, esc", 0, Qt::Key_Escape, msgbox::Ok, u"OK"_s},
            {"ok cancel, closed", 1, 0, msgbox::Cancel, u"OK"_s},
            {"abort retry ignore, esc", 2, Qt::Key_Escape, msgbox::Abort, u"Abort"_s},
            {"abort retry ignore, second", 2 + 256, Qt::Key_Return, msgbox::Retry, u"Retry"_s},
            {"abort retry ignore, mnemonic", 2 + 512, Qt::Key_I, msgbox::Ignore, u"Ignore"_s},
            {"yes no cancel, third", 3 + 512, Qt::Key_Return, msgbox::Cancel, u"Cancel"_s},
            {"yes no, second", 276, Qt::Key_Return, msgbox::No, u"No"_s},
            {"yes no, mnemonic", 276, Qt::Key_Y, msgbox::Yes, u"No"_s},
            {"yes no, closed, no third", 4 + 512, 0, msgbox::No, u"Yes"_s},
            {"retry cancel, esc", 5, Qt::Key_Escape, msgbox::Cancel, u"Retry"_s},
        };
        for (const auto& [name, style, key, answer, defaultButton] : rows) {
            const InRow inRow(this, name);
            OnNextModal<QMessageBox>([=](QMessageBox& box) {
                QVERIFY(QTest::qWaitForWindowActive(&box));
                QCOMPARE(box.text(), u"replace '<b>a.mdb'?"_s);
                QVERIFY(box.width() >= WidthForTitle(box));
                QCOMPARE(In<QLabel>(box, "qt_msgbox_label").textFormat(), Qt::PlainText);
                QCOMPARE(support::PlainText(box.defaultButton()), defaultButton);
                const bool isLetter = key < Qt::Key_Escape;
                if (key == 0) return void(box.close());
                QTest::keyClick(box.windowHandle(), Qt::Key(key), isLetter ? Qt::AltModifier : Qt::NoModifier);
            });
            const QString title = u"A title that is longer than the question"_s;
            QCOMPARE(MsgBox(u"replace '<b>a.mdb'?"_s, style, title), answer);
        }
    }

    void ALongTextIsShownWhole()
    {
        const std::tuple<const char*, QString, bool> rows[] = {
            {"path without blanks", u'/' + QString(900, u'w'), false},
            {"path of folders", u"/home/person/plans/planner.bmp"_s.repeated(9), false},
            {"words", u"word "_s.repeated(200), false},
            {"a book", u"word "_s.repeated(4000), true},
        };
        for (const auto& [name, text, folded] : rows) {
            const InRow inRow(this, name);
            OnNextModal<QMessageBox>([&](QMessageBox& box) {
                auto* const label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
                const QRect shown(label->mapTo(&box, QPoint()), label->size());
                QVERIFY(box.rect().contains(shown));
                QVERIFY(QRect(QPoint(), box.screen()->size()).contains(box.rect()));
                QVERIFY(label->width() >= label->minimumSizeHint().width());
                QVERIFY(label->height() >= label->heightForWidth(label->width()));
                QCOMPARE(folded ? box.detailedText() : box.text().remove(QChar(0x200B)), text);
                const QRegularExpression insideAName(u"[^/]\\x{200B}"_s);
                QVERIFY(text.contains(QString(41, u'w')) || !box.text().contains(insideAName));
                box.accept();
            });
            MsgBox(text, msgbox::Exclamation, u"Orrelin Help Wizard"_s);
        }
    }

    void ABoxOutlivesItsOwner()
    {
        auto* const owner = new QWidget;
        owner->show();
        QVERIFY(QTest::qWaitForWindowActive(owner));
        OnNextModal<QMessageBox>([owner](QMessageBox& box) {
            QCOMPARE(box.parentWidget(), owner);
            delete owner;
        });
        QCOMPARE(MsgBox(u"?"_s, msgbox::YesNo), msgbox::No);
    }

    void TheHourglassIsOneValueAndRestsDuringABox()
    {
        SetMousePointer(mousepointer::Hourglass);
        SetMousePointer(mousepointer::Hourglass);
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        bool waiting = true;
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            waiting = QGuiApplication::overrideCursor() != nullptr;
            box.accept();
        });
        MsgBox(u"done"_s);
        QVERIFY(!waiting);
        QVERIFY(QGuiApplication::overrideCursor());
        SetMousePointer(mousepointer::Default);
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void TheFileDialogTakesNames()
    {
        const int mustExist = CommonDialog::FileMustExist;
        const std::tuple<const char*, QString, int, QString> rows[] = {
            {"existing", u"beta.mdb"_s, 4, u"beta.mdb"_s},
            {"new", u"Notes neu"_s, 4, u"Notes neu"_s},
            {"new, not ascii", u"Übersicht.mdb"_qs, 4, u"Übersicht.mdb"_qs},
            {"with a path", Path(u"beta.mdb"_s), 4, u"beta.mdb"_s},
            {"other case", u"ALPHA.mdb"_s, mustExist, u"Alpha.MDB"_s},
            {"other filter", u"notes.txt"_s, mustExist, u"notes.txt"_s},
        };
        for (const auto& [name, typed, flags, chosen] : rows) {
            const InRow inRow(this, name);
            CommonDialog dialog = PlannerDialog();
            dialog.Flags = flags;
            AnswerNextFileDialog(typed);
            QCOMPARE(NumberOf(dialog, 1), 0);
            QCOMPARE(dialog.FileName, Path(chosen));
            QCOMPARE(dialog.FileTitle, chosen);
            dialog.InitDir.clear();
            QString folder;
            OnNextModal<QFileDialog>([&](QFileDialog& shown) {
                folder = shown.directory().path();
                shown.reject();
            });
            QCOMPARE(NumberOf(dialog, 1), int(errors::DialogCancelled));
            QCOMPARE(folder, m_folder.path());
            QCOMPARE(dialog.FileName, Path(chosen));
        }
    }

    void CancelIsAnErrorOnlyIfAskedFor()
    {
        CommonDialog dialog = PlannerDialog();
        dialog.Flags = CommonDialog::FileMustExist;
        AnswerNextFileDialog(u"none.mdb"_s);
        AnswerNextBox(msgbox::Ok);
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), int(errors::DialogCancelled));
        dialog.CancelError = false;
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), 0);
        QCOMPARE(dialog.FileName, QString());
        QCOMPARE(WaitingAnswers(), 0);
    }

    void FiltersAreOffered()
    {
        CommonDialog dialog = PlannerDialog();
        dialog.DialogTitle = u"New Planner File"_s;
        OnNextModal<QFileDialog>([&](QFileDialog& shown) {
            QCOMPARE(shown.windowTitle(), u"New Planner File"_s);
            QCOMPARE(shown.nameFilters(), QStringList({u"Planner Files (*.mdb)"_s, u"All Files (*)"_s}));
            shown.selectNameFilter(shown.nameFilters().at(1));
            AnswerNextFileDialog(u"README"_s);
        });
        QCOMPARE(NumberOf(dialog, 1), 0);
        QCOMPARE(dialog.FilterIndex, 2);
    }

    void ThePersonsEventsWaitDuringDoEvents()
    {
        struct Counter : QWidget
        {
            int Moves = 0;
            void mouseMoveEvent(QMouseEvent*) override { ++Moves; }
        } window;
        window.setMouseTracking(true);
        window.resize(200, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.Moves = 0;
        bool ticked = false;
        QTimer::singleShot(0, this, [&] { ticked = true; });
        // Clicks sent by a test come at once, but the moved pointer's event waits in the window system's queue.
        QCursor::setPos(window.mapToGlobal(QPoint(50, 60)));
        DoEvents();
        QVERIFY(ticked);
        QCOMPARE(window.Moves, 0);
        QTRY_VERIFY(window.Moves > 0);
    }
};

ORRELIN_TEST(DesktopDialogTest)
#include "desktopdialogtest.moc"
