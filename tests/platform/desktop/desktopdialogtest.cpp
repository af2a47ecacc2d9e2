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

    void BoxesAnswer_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("key"); // 0: the close box
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("defaultButton");
        const auto row = [](const char* name, int style, int key, int answer, const char* defaultButton) {
            QTest::newRow(name) << style << key << answer << QString::fromLatin1(defaultButton);
        };
        row("ok, esc", 0, Qt::Key_Escape, msgbox::Ok, "OK");
        row("ok cancel, closed", 1, 0, msgbox::Cancel, "OK");
        row("abort retry ignore, esc", 2, Qt::Key_Escape, msgbox::Abort, "Abort");
        row("abort retry ignore, second", 2 + 256, Qt::Key_Return, msgbox::Retry, "Retry");
        row("abort retry ignore, mnemonic", 2 + 512, Qt::Key_I, msgbox::Ignore, "Ignore");
        row("yes no cancel, third", 3 + 512, Qt::Key_Return, msgbox::Cancel, "Cancel");
        row("yes no, second", 276, Qt::Key_Return, msgbox::No, "No");
        row("yes no, mnemonic", 276, Qt::Key_Y, msgbox::Yes, "No");
        row("yes no, closed, no third", 4 + 512, 0, msgbox::No, "Yes");
        row("retry cancel, esc", 5, Qt::Key_Escape, msgbox::Cancel, "Retry");
    }

    void BoxesAnswer()
    {
        QFETCH(int, key);
        QFETCH(int, style);
        OnNextModal<QMessageBox>([=](QMessageBox& box) {
            QVERIFY(QTest::qWaitForWindowActive(&box));
            QCOMPARE(box.text(), u"replace '<b>a.mdb'?"_s);
            QVERIFY(box.width() >= WidthForTitle(box));
            QCOMPARE(In<QLabel>(box, "qt_msgbox_label").textFormat(), Qt::PlainText);
            QTEST(support::PlainText(box.defaultButton()), "defaultButton");
            const bool isLetter = key < Qt::Key_Escape;
            if (key == 0) return void(box.close());
            QTest::keyClick(box.windowHandle(), Qt::Key(key), isLetter ? Qt::AltModifier : Qt::NoModifier);
        });
        const QString title = u"A title that is longer than the question"_s;
        QTEST(MsgBox(u"replace '<b>a.mdb'?"_s, style, title), "answer");
    }

    void ALongTextIsShownWhole_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("folded");
        QTest::newRow("path without blanks") << u'/' + QString(900, u'w') << false;
        QTest::newRow("path of folders") << u"/home/person/plans/planner.bmp"_s.repeated(9) << false;
        QTest::newRow("words") << u"word "_s.repeated(200) << false;
        QTest::newRow("a book") << u"word "_s.repeated(4000) << true;
    }

    void ALongTextIsShownWhole()
    {
        QFETCH(QString, text);
        QFETCH(bool, folded);
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
        QCOMPARE(MousePointer(), mousepointer::Hourglass);
        SetMousePointer(mousepointer::Default);
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void TheFileDialogTakesNames_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("flags");
        QTest::addColumn<QString>("chosen");
        const int mustExist = CommonDialog::FileMustExist;
        QTest::newRow("existing") << "beta.mdb" << 4 << "beta.mdb";
        QTest::newRow("new") << "Notes neu" << 4 << "Notes neu";
        QTest::newRow("new, not ascii") << u"Übersicht.mdb"_qs << 4 << u"Übersicht.mdb"_qs;
        QTest::newRow("with a path") << Path(u"beta.mdb"_s) << 4 << "beta.mdb";
        QTest::newRow("other case") << "ALPHA.mdb" << mustExist << "Alpha.MDB";
        QTest::newRow("other filter") << "notes.txt" << mustExist << "notes.txt";
    }

    void TheFileDialogTakesNames()
    {
        QFETCH(QString, typed);
        QFETCH(int, flags);
        QFETCH(QString, chosen);
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

    void CancelIsAnErrorOnlyIfAskedFor()
    {
        CommonDialog dialog = PlannerDialog();
        dialog.Flags = CommonDialog::FileMustExist;
        AnswerNextFileDialog(u"none.mdb"_s);
        AnswerNextBox(msgbox::Ok); // no such file
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), int(errors::DialogCancelled));
        dialog.CancelError = false;
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), 0);
        QCOMPARE(dialog.FileName, QString());
        QCOMPARE(WaitingAnswers(), 0);
    }

    void FiltersShowTheirFilesInAnyCase()
    {
        CommonDialog dialog = PlannerDialog();
        dialog.DialogTitle = u"New Planner File"_s;
        OnNextModal<QFileDialog>([&](QFileDialog& shown) {
            auto* const list = shown.findChild<QAbstractItemView*>(u"treeView"_s);
            const auto listed = [list] {
                QStringList texts;
                for (int i = 0; i < list->model()->rowCount(list->rootIndex()); ++i) {
                    texts += list->model()->index(i, 0, list->rootIndex()).data().toString();
                }
                texts.sort();
                return texts.join(u' ');
            };
            QCOMPARE(shown.windowTitle(), u"New Planner File"_s);
            QTRY_COMPARE(listed(), u"Alpha.MDB beta.mdb"_s);
            shown.selectNameFilter(shown.nameFilters().at(1));
            QTRY_COMPARE(listed(), u"Alpha.MDB README beta.mdb notes.txt"_s);
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
        // Unlike the clicks that a test sends, a pointer that is put somewhere waits in the window system's queue.
        QCursor::setPos(window.mapToGlobal(QPoint(50, 60)));
        DoEvents();
        QVERIFY(ticked);
        QCOMPARE(window.Moves, 0);
        QTRY_VERIFY(window.Moves > 0);
    }
};

ORRELIN_TEST(DesktopDialogTest)
#include "desktopdialogtest.moc"
