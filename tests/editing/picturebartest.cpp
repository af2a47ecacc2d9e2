#include "editing/picturebar.h"

#include "platform/controls/picturestrip.h"
#include "program.h"
#include "testmain.h"

#include <QTabBar>

namespace {
constexpr QChar Picture = QChar::ObjectReplacementCharacter;
const QString File = u"notes.mdb"_s;

void MakeIcon(const QString& path, QColor color)
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(color);
    QVERIFY(image.save(path, "ICO"));
}

} // namespace

// The strip of pictures on the real window. The program comes with two pictures, a blue one and a red one.
class PictureBarTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<Program> m_program;

    PictureStrip& Strip() { return m_program->Find<PictureStrip>("tbPictureBox"); }
    QString Content() { return Strip().toPlainText(); }
    QDir Icons() { return QDir(folders::ApplicationDirectory() + u"/icons"_s); }
    void ShowPictures() { m_program->form->findChild<QTabBar*>()->setCurrentIndex(1); }
    void Reload() { QTest::keyClick(&m_program->Find<QPushButton>("btnReloadIcons"), Qt::Key_Return); }

    void DropFiles(const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls.append(QUrl::fromLocalFile(path));
        data.setUrls(urls);
        Drop(Strip(), data);
    }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<Program>();
        const QString shipped = m_program->folders.Path(u"shipped/icons"_s);
        QVERIFY(QDir().mkpath(shipped));
        MakeIcon(shipped + u"/b-red.ico"_s, Qt::red);
        MakeIcon(shipped + u"/A-blue.ico"_s, Qt::blue);
        m_program->Start();
    }
    void cleanup() { m_program.reset(); }

    void APictureGoesIntoANoteByKeys()
    {
        m_program->New(File);
        ShowPictures();
        Strip().setFocus();
        const qsizetype first = Content().indexOf(Picture), second = Content().indexOf(Picture, first + 1);
        for (const auto& [key, chosen] :
             {std::pair(Qt::Key_Left, second), std::pair(Qt::Key_Left, first), std::pair(Qt::Key_Left, first),
              std::pair(Qt::Key_Right, second), std::pair(Qt::Key_Right, second), std::pair(Qt::Key_Home, first)}) {
            QTest::keyClick(&Strip(), key);
            QCOMPARE(Strip().SelStart(), int(chosen));
            QCOMPARE(Strip().SelLength(), 1);
        }
        QTest::keyClick(&Strip(), Qt::Key_C, Qt::ControlModifier);
        m_program->Click(20);
        QTest::keyClick(&m_program->Box(20), Qt::Key_V, Qt::ControlModifier);
        QTRY_VERIFY(m_program->Box(20).toPlainText().startsWith(Picture));
    }

    void thePicturesStandInTheStrip()
    {
        QCOMPARE(Content(), QString()); // the tab was never shown
        ShowPictures();
        QCOMPARE(Content(), Picture + u"   "_s + Picture + u"   "_s);
        const QRect first = Strip().cursorRect(QTextCursor(Strip().document()));
        QCOMPARE(Strip().viewport()->grab().toImage().pixelColor(first.center() + QPoint(16, 0)), QColor(Qt::blue));
        // From now on the folder belongs to the person.
        QVERIFY(Icons().remove(u"A-blue.ico"_s));
        Reload();
        QCOMPARE(Content(), Picture + u"   "_s);
    }

    void aDamagedIconEndsTheStrip()
    {
        ShowPictures();
        MakeIcon(Icons().filePath(u"d-green.ico"_s), Qt::green);
        SetContent(Icons().filePath(u"c-damaged.ico"_s), "no icon at all");
        Reload();
        QCOMPARE(Content().count(Picture), 2);
        QVERIFY(m_program->Log().contains(":Invalid picture in MainForm, subLoadIcons"));
    }

    void iconsAreDroppedOntoTheStrip()
    {
        ShowPictures();
        MakeIcon(m_program->folders.Path(u"new.ICO"_s), Qt::green);
        MakeIcon(m_program->folders.Path(u"b-red.ico"_s), Qt::green);
        SeenBox seen;
        AnswerNextBox(msgbox::Ok, &seen);
        DropFiles({m_program->folders.Path(u"song.mid"_s)});
        QCOMPARE(seen.Text, u"Incorrect File Format!\nPlease select Icon(*.ico) files only."_s);
        QCOMPARE(seen.Icon, QMessageBox::Warning);
        AnswerNextBox(msgbox::Ok, &seen);
        DropFiles({m_program->folders.Path(u"b-red.ico"_s)});
        QCOMPARE(seen.Text, u"File Exists!\nPlease select another Icon(*.ico) file."_s);
        DropFiles({m_program->folders.Path(u"new.ICO"_s), u"/nowhere/second.ico"_s});
        QCOMPARE(Content().count(Picture), 2); // until the next reload
        Reload();
        QCOMPARE(Content().count(Picture), 3);
        const QString damaged = m_program->folders.Path(u"damaged.ico"_s);
        SetContent(damaged, "no icon at all");
        AnswerNextBox(msgbox::Ok, &seen);
        DropFiles({damaged});
        QCOMPARE(seen.Text, u"Incorrect File Format!\nPlease select Icon(*.ico) files only."_s);
        DropFiles({u"/nowhere/third.ico"_s});
        QVERIFY(!Icons().exists(u"third.ico"_s));
        QVERIFY(m_program->Log().contains(":Path/File access error in MainForm, tbPictureBox_OLEDragDrop"));
    }

    void oneSelectedPictureIsDragged()
    {
        m_program->New(File);
        ShowPictures();
        for (const auto& [start, length] : {std::pair(1, 2), std::pair(0, 2), std::pair(0, 5)}) {
            Select(Strip(), start, length);
            QMimeData data;
            QPixmap cursor;
            SeenBox seen;
            AnswerNextBox(msgbox::Ok, &seen);
            Q_EMIT Strip().OLEStartDrag(data, cursor);
            QCOMPARE(seen.Text, u"Please select one picture at a time."_s);
            QVERIFY(data.formats().isEmpty());
        }
        QTest::mouseClick(Strip().viewport(), Qt::LeftButton, {},
                          QPoint(10, 10)); // selects the picture under the mouse
        QCOMPARE(Strip().SelLength(), 1);
        QMimeData data;
        QPixmap cursor;
        Q_EMIT Strip().OLEStartDrag(data, cursor);
        QCOMPARE(cursor.size(), QSize(32, 32));
        m_program->Type(18, u"tea"_s);
        Drop(m_program->Box(18), data, QPoint(100, 8));
        QCOMPARE(m_program->Box(18).toPlainText(), u"tea"_s + Picture + u' ');
        Drop(m_program->Box(20), data);
        m_program->Trigger("mnuSave");
        for (const char* day : {"1999/3/17", "1999/3/19"}) {
            const QByteArray stored = m_program->Stored(File, QString::fromLatin1(day));
            QVERIFY(stored.contains("\\pict") && stored.contains("\\picwgoal480"));
        }
    }

    void oldPicturesGetTheHeaderOfAnIcon()
    {
        const QString path = folders::ApplicationDirectory() + u"/pictures.orl"_s;
        SetContent(path, "{\\rtf1 text\r\none {\\pict\\wmetafile8\\picw10 0100\r\n0900\r\n}}");
        subFixPictures();
        QCOMPARE(::Content(path), QByteArray("{\\rtf1 text\r\none {\\pict\\wmetafile8\\picw846\\pich846\\picwgoal479"
                                             "\\pichgoal479\r\n0900\r\n}}\r\n"));
    }

    void oneColourIsLeftOut()
    {
        QImage ground(4, 4, QImage::Format_RGB32), stamp(4, 4, QImage::Format_RGB32);
        ground.fill(Qt::yellow);
        stamp.fill(Qt::white);
        stamp.setPixelColor(2, 1, Qt::black);
        subTransparentBlt(ground, stamp, QRect(1, 1, 2, 2), 0, 2, qRgb(255, 255, 255));
        QCOMPARE(ground.pixelColor(1, 2), QColor(Qt::black));
        QCOMPARE(ground.pixelColor(0, 2), QColor(Qt::yellow));
        QCOMPARE(ground.pixelColor(2, 1), QColor(Qt::yellow));
    }
};

ORRELIN_TEST(PictureBarTest)
#include "picturebartest.moc"
