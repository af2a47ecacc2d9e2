#include "platform/desktop/commondialog.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/filesystem.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/runtime/runtimeerror.h"
#include "support.h"

#include <QLabel>
#include <QMouseEvent>
#include <QScreen>

class DesktopDialogTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }
    void Make(const QString& name) const
    {
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    static int NumberOf(CommonDialog& dialog, int action)
    {
        try {
            dialog.Action(action);
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }

    CommonDialog PlannerDialog() const
    {
        CommonDialog dialog(nullptr);
        dialog.InitDir = m_folder.path();
        dialog.Filter = QStringLiteral("Planner Files (*.mdb)|*.mdb|All Files (*.*)|*.*");
        dialog.CancelError = true;
        return dialog;
    }

private Q_SLOTS:
    void init()
    {
        Make(QStringLiteral("Alpha.MDB"));
        Make(QStringLiteral("beta.mdb"));
        Make(QStringLiteral("notes.txt"));
        Make(QStringLiteral("README"));
    }
    void cleanup()
    {
        DropAnswers();
        QDir(m_folder.path()).removeRecursively();
        QVERIFY(QDir().mkpath(m_folder.path()));
    }

    void BoxesAnswerByTheirButtons_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("pressed");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("defaultButton");
        const auto row = [](int style, const char* pressed, int answer, const char* defaultButton) {
            QTest::addRow("%d %s", style, pressed)
                << style << QString::fromLatin1(pressed) << answer << QString::fromLatin1(defaultButton);
        };
        row(0, "OK", msgbox::Ok, "OK");
        row(1 + 256, "OK", msgbox::Ok, "Cancel");
        row(1, "Cancel", msgbox::Cancel, "OK");
        row(2, "Abort", msgbox::Abort, "Abort");
        row(2 + 256, "Retry", msgbox::Retry, "Retry");
        row(2 + 512, "Ignore", msgbox::Ignore, "Ignore");
        row(3 + 512, "No", msgbox::No, "Cancel");
        row(276, "Yes", msgbox::Yes, "No");
        row(4 + 512, "No", msgbox::No, "Yes");
        row(5, "Retry", msgbox::Retry, "Retry");
    }

    void BoxesAnswerByTheirButtons()
    {
        QFETCH(int, style);
        QFETCH(QString, pressed);
        QFETCH(QString, defaultButton);
        SeenBox seen;
        AnswerNextBox(pressed, &seen);
        QTEST(MsgBox(QStringLiteral("replace '<b>a.mdb'?"), style), "answer");
        QCOMPARE(seen.Text, QStringLiteral("replace '<b>a.mdb'?"));
        QCOMPARE(seen.Title, QStringLiteral("Orrelin"));
        QCOMPARE(seen.DefaultButton, defaultButton);
    }

    void KeysAnswerBoxes_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("answer");
        QTest::newRow("esc ok") << 0 << int(Qt::Key_Escape) << msgbox::Ok;
        QTest::newRow("esc yesno") << 4 << int(Qt::Key_Escape) << msgbox::No;
        QTest::newRow("esc yesnocancel") << 3 << int(Qt::Key_Escape) << msgbox::Cancel;
        QTest::newRow("esc abort") << 2 << int(Qt::Key_Escape) << msgbox::Abort;
        QTest::newRow("return default") << 276 << int(Qt::Key_Return) << msgbox::No;
        QTest::newRow("alt+y") << 276 << int(Qt::Key_Y) << msgbox::Yes;
        QTest::newRow("closed") << 4 << 0 << msgbox::No;
    }

    void KeysAnswerBoxes()
    {
        QFETCH(int, style);
        QFETCH(int, key);
        OnNextModal<QMessageBox>([key](QMessageBox& box) {
            QVERIFY(QTest::qWaitForWindowActive(&box));
            if (key == 0) return void(box.close());
            QTest::keyClick(box.windowHandle(), Qt::Key(key), key == Qt::Key_Y ? Qt::AltModifier : Qt::NoModifier);
        });
        QTEST(MsgBox(QStringLiteral("?"), style), "answer");
    }

    void ALongTextIsShownWhole_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("folded");
        QTest::newRow("path without blanks") << u'/' + QString(900, u'w') << false;
        QTest::newRow("words") << QStringLiteral("word ").repeated(200) << false;
        QTest::newRow("a book") << QStringLiteral("word ").repeated(4000) << true;
    }

    void ALongTextIsShownWhole()
    {
        QFETCH(QString, text);
        QFETCH(bool, folded);
        OnNextModal<QMessageBox>([&](QMessageBox& box) {
            auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            const QRect shown(label->mapTo(&box, QPoint()), label->size());
            QVERIFY(box.rect().contains(shown));
            QVERIFY(QRect(QPoint(), box.screen()->size()).contains(box.rect()));
            QVERIFY(label->width() >= label->minimumSizeHint().width());
            QVERIFY(label->height() >= label->heightForWidth(label->width()));
            QCOMPARE(folded ? box.detailedText() : box.text().remove(QChar(0x200B)), text);
            box.accept();
        });
        MsgBox(text, msgbox::Exclamation, QStringLiteral("Orrelin Help Wizard"));
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
        QCOMPARE(MsgBox(QStringLiteral("?"), msgbox::YesNo), msgbox::No);
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
        MsgBox(QStringLiteral("done"));
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
        QTest::newRow("with a path") << Path(QStringLiteral("beta.mdb")) << 4 << "beta.mdb";
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
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), int(errors::DialogCancelled));
        dialog.CancelError = false;
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), 0);
        QCOMPARE(dialog.FileName, QString());
        QCOMPARE(NumberOf(dialog, 7), 5);
    }

    void AFileThatMustExistIsNotInvented()
    {
        CommonDialog dialog = PlannerDialog();
        dialog.Flags = CommonDialog::FileMustExist;
        AnswerNextFileDialog(QStringLiteral("none.mdb"));
        AnswerNextBox(msgbox::Ok);
        CancelNextFileDialog();
        QCOMPARE(NumberOf(dialog, 1), int(errors::DialogCancelled));
        QCOMPARE(WaitingAnswers(), 0);
    }

    void FiltersShowTheirFilesInAnyCase_data()
    {
        QTest::addColumn<int>("filter");
        QTest::addColumn<QStringList>("names");
        QTest::newRow("planners") << 1 << u"Alpha.MDB|beta.mdb"_qs.split(u'|');
        QTest::newRow("all") << 2 << u"Alpha.MDB|README|beta.mdb|notes.txt"_qs.split(u'|');
    }

    void FiltersShowTheirFilesInAnyCase()
    {
        QFETCH(int, filter);
        QFETCH(QStringList, names);
        CommonDialog dialog = PlannerDialog();
        dialog.FilterIndex = filter;
        dialog.DialogTitle = QStringLiteral("New Planner File");
        OnNextModal<QFileDialog>([&](QFileDialog& shown) {
            QCOMPARE(shown.windowTitle(), QStringLiteral("New Planner File"));
            auto* const list = shown.findChild<QAbstractItemView*>(QStringLiteral("treeView"));
            const auto listed = [list] {
                QStringList texts;
                for (int i = 0; i < list->model()->rowCount(list->rootIndex()); ++i) {
                    texts += list->model()->index(i, 0, list->rootIndex()).data().toString();
                }
                texts.sort();
                return texts;
            };
            QTRY_COMPARE(listed(), names);
            shown.selectNameFilter(shown.nameFilters().at(1));
            AnswerNextFileDialog(QStringLiteral("README"));
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

QTEST_MAIN(DesktopDialogTest)
#include "desktopdialogtest.moc"
