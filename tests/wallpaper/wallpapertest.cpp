#include "fakedesktop.h"
#include "platform/look/paper.h"
#include "platform/spelling/spellmarks.h"
#include "program.h"
#include "settingsfile.h"
#include "testmain.h"
#include "virtualscreen.h"
#include "wallpaper/wallpaperform.h"

#include <QCheckBox>
#include <QLabel>
#include <QScreen>

// The wallpaper commands on the real window and the root of a real X server; today is 17 March 1999, cell 18.
class WallpaperTest : public QObject
{
    Q_OBJECT

    static constexpr int Today = 18;
    const QString m_options = u"org.gnome.desktop.background picture-options"_s;
    const QString m_address = u"org.gnome.desktop.background picture-uri"_s;
    std::unique_ptr<Program> m_program;

    static QString WinIni(const char* key)
    {
        return GetPrivateProfileStringA(u"Desktop"_s, QString::fromLatin1(key), u"none"_s, 1000, u"WIN.INI"_s);
    }
    static QString Bitmap(const char* name)
    {
        return folders::ApplicationDirectory() + u'/' + QString::fromLatin1(name);
    }

    // From the first heading to the bottom of the title, in pixels of the client area.
    QRect Region() const
    {
        const auto& heading = m_program->Find<SSPanel>("lblDayOfWeek(0)");
        const SSPanel& title = m_program->Bottom();
        return {heading.x(), heading.y(), title.width(), m_program->form->centralWidget()->height() - heading.y()};
    }

    // The part of the bitmap that shows the cell.
    QImage Cell(const QImage& bitmap, int cell) const
    {
        const SSPanel& panel = m_program->Panel(cell);
        const qreal ratio = panel.devicePixelRatioF();
        const QRect place = panel.geometry().translated(-Region().topLeft());
        return bitmap.copy(QRect(place.topLeft() * ratio, place.size() * ratio));
    }

    static bool HasColor(const QImage& image, const QColor& color)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == color) return true;
        }
        return false;
    }

    // The label with the number that the mouse shows over the cell.
    QLabel& ShowDateDiff(int cell) const
    {
        auto& label = m_program->Find<QLabel>("lblDateDiff");
        m_program->Trigger("mnuDateDiffShow");
        QTest::mouseMove(m_program->Box(cell).viewport(), QPoint(5, 5));
        QTest::mouseMove(m_program->Box(cell).viewport(), QPoint(9, 9));
        if (!QTest::qWaitFor([&] { return label.isVisible(); })) QTest::qFail("no number", __FILE__, __LINE__);
        return label;
    }

    // The command's message, with its title.
    QString Said(const char* entry) const
    {
        const SeenBox box = m_program->Said(entry);
        return box.Title + u": "_s + box.Text;
    }

private Q_SLOTS:
    void init() { m_program = Program::Started(); }
    void cleanup() { m_program.reset(); }

    void TheShownMonthBecomesTheWallpaper()
    {
        m_program->New(u"Notes.mdb"_s);
        m_program->Type(Today, u"a note of today"_s);
        m_program->Box(Today).selectAll();
        const qreal ratio = m_program->form->devicePixelRatioF();
        m_program->Trigger("mnuSetWallpaper");

        const QImage bitmap(Bitmap("notes.bmp"));
        const QSize region = Region().size();
        QCOMPARE(bitmap.size(), QSize(region.width(), region.height() - 1) * ratio);
        QCOMPARE(WinIni("wallpaper"), Bitmap("notes.bmp"));
        QCOMPARE(WinIni("TileWallPaper"), u"0"_s);

        const SeenRoot seen;
        const QImage root = seen.Picture(seen.Pixmap());
        QRect place(QPoint(), bitmap.size());
        place.moveCenter(root.rect().center());
        QCOMPARE(root.copy(place), bitmap.copy().convertToFormat(QImage::Format_RGB32));
        QVERIFY(HasColor(Cell(bitmap, 1), paper::MemoPaper)); // it shows the calendar
    }

    void NothingOfTheMomentIsInThePicture()
    {
        SetIni("SPELLING", "DICTIONARIES", "en_US");
        m_program->Trigger("mnuSetWallpaper"); // while the card is shown
        m_program->New(u"notes.mdb"_s);
        m_program->Trigger("mnuSetWallpaper");
        QVERIFY(QImage(Bitmap("planner.bmp")) == QImage(Bitmap("notes.bmp")));
        m_program->Type(Today, u"a note of todya "_s);
        RichTextBox& box = m_program->Box(Today);
        QTRY_VERIFY(SpellMarks::Of(box) && !SpellMarks::Of(box)->Unknown().empty());
        Select(box, 2, 4);
        const int caretWidth = box.cursorWidth();
        const QLabel& label = ShowDateDiff(Today);
        m_program->Trigger("mnuSetWallpaper");
        const QImage cell = Cell(QImage(Bitmap("notes.bmp")), Today);
        for (const QColor& color :
             {paper::Today, paper::TodayFrame, paper::Accent, QColor(Qt::red), label.palette().color(QPalette::Window),
              box.palette().color(QPalette::Active, QPalette::Highlight)})
            QVERIFY2(!HasColor(cell, color), qPrintable(color.name()));
        QVERIFY(HasColor(cell, Qt::black)); // the note, and the number as on any other day
        SpellMarks::Of(box)->Clear();
        m_program->Trigger("mnuSetWallpaper");
        QCOMPARE(Cell(QImage(Bitmap("notes.bmp")), Today), cell); // without the wave

        QCOMPARE(m_program->Panel(Today).Paper(), QColor(paper::Today));
        QCOMPARE(m_program->Panel(Today).ForeColor(), 0xFFu);
        QVERIFY(m_program->Panel(Today).IsActive());
        QCOMPARE(box.SelLength(), 4);
        QCOMPARE(box.cursorWidth(), caretWidth);
        QVERIFY(label.isVisible());
        QVERIFY(HasColor(m_program->Panel(Today).grab().toImage(), paper::Accent));
    }

    void AnotherMonthStaysAndTheWeekTakesTheStylesOfTheMonth()
    {
        m_program->New(u"planner.mdb"_s);
        m_program->Trigger("mnuNextMonth");
        SSPanel& sameDay = m_program->Panel(m_program->CellOf(17));
        sameDay.SetPaper(Qt::green); // a colour that no cell has
        m_program->Trigger("mnuSetWallpaper");
        QCOMPARE(sameDay.Paper(), QColor(Qt::green)); // no cell of another month changes
        m_program->Trigger("mnuThisMonth");
        m_program->Trigger("mnuWeekView");
        m_program->Trigger("mnuSetWallpaper");
        QCOMPARE(m_program->Panel(39).Caption(), u" 17"_s);
        QCOMPARE(m_program->Panel(39).CaptionFont().pointSize(), 8);
        QCOMPARE(m_program->Panel(39).ForeColor(), 0xFFu);
        QVERIFY(!HasColor(Cell(QImage(Bitmap("planner.bmp")), 39), paper::TodayFrame));
    }

    void TheSizeFollowsTheOption()
    {
        for (const auto& [what, size, isWeek] : Rows<QString, bool>{
                 {"full screen", u"1"_s, false}, {"full screen, week", u"1"_s, true}, {"maximized", u"2"_s, false}}) {
            const InRow row(this, what);
            m_program->New(u"mymdb"_s); // a name whose last letters count as an extension
            if (isWeek) m_program->Trigger("mnuWeekView");
            SetIni("WallPaper", "WallpaperSize", size);
            const QRect before = m_program->form->geometry();
            const QRect cell = m_program->Panel(isWeek ? 39 : Today).geometry();
            const QSize client = m_program->form->centralWidget()->size();
            const QLabel& label = ShowDateDiff(isWeek ? 39 : Today);
            const QRect number = label.geometry();
            m_program->Trigger("mnuSetWallpaper");
            const QImage bitmap(Bitmap("m.bmp"));
            QVERIFY(!HasColor(bitmap, label.palette().color(QPalette::Window)));
            QVERIFY(label.isVisible() && label.geometry() == number);
            const QSize screen = m_program->form->screen()->size();
            const qreal ratio = m_program->form->devicePixelRatioF();
            const QSize around = m_program->form->frameGeometry().size() - client;
            const QSize maximized = Region().size() + (screen - around - client) - QSize(0, 1);
            const SeenRoot root;
            QCOMPARE(bitmap.size(), size == u'1' ? root.SizeOf(root.Window()) : maximized * ratio);
            // The headings are at the top and the title at the bottom, over the full width.
            QVERIFY(HasColor(bitmap.copy(0, 0, bitmap.width() / 7, 20), paper::Band));
            QVERIFY(HasColor(bitmap.copy(bitmap.width() - 30, bitmap.height() - 30, 30, 30), paper::Band));
            QCOMPARE(m_program->form->geometry(), before);
            QCOMPARE(m_program->Panel(isWeek ? 39 : Today).geometry(), cell);
        }
    }

    void ThePreviousOneComesBackAsItWas()
    {
        const FakeDesktop fake("GNOME");
        const QString photo = m_program->folders.Path(QString(100, u'p') + u".png"_s);
        QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(photo));
        fake.Keep(m_address, "'file://" + photo.toUtf8() + '\'');
        fake.Keep(m_options, "'wallpaper'");
        m_program->Trigger("mnuSetWallpaper");
        QCOMPARE(fake.Kept(m_options), QByteArray("'centered'"));
        QCOMPARE(Ini("WallPaper", "PreviousWallPaper"),
                 photo); // was set by another program and is longer than 80 letters
        QCOMPARE(Ini("WallPaper", "PreviousTileStyle"), u"1"_s);
        QCOMPARE(WinIni("TileWallPaper"), u"0"_s);
        QCOMPARE(Said("mnuPrevWallpaper"), u"Orrelin Help Wizard: Restored to previous wallpaper!"_s);
        QCOMPARE(fake.Kept(m_options), QByteArray("'wallpaper'"));
        QCOMPARE(fake.Kept(m_address), "'file://" + photo.toUtf8() + '\'');
        QCOMPARE(WinIni("TileWallPaper"), u"1"_s);

        m_program->Trigger("mnuSetWallpaper");
        m_program->Trigger("mnuSetWallpaper");
        Said("mnuPrevWallpaper");
        QCOMPARE(fake.Kept(m_address), "'file://" + Bitmap("planner.bmp").toUtf8() + '\'');
    }

    void WithoutAPreviousOneTheDesktopIsCleared()
    {
        m_program->Trigger("mnuSetWallpaper");
        QVERIFY(SeenRoot().Pixmap() != 0);
        SetIni("WallPaper", "PreviousWallPaper", u"(None)"_s);
        QCOMPARE(Said("mnuPrevWallpaper"), u"Orrelin Help Wizard: Restored to previous wallpaper!"_s);
        QCOMPARE(SeenRoot().Pixmap(), 0U);
        QCOMPARE(WinIni("wallpaper"), u"(None)"_s);
        // As at the start of a session: the root is empty, and WIN.INI names the last picture.
        WritePrivateProfileStringA(u"Desktop"_s, u"wallpaper"_s, Bitmap("planner.bmp"), u"WIN.INI"_s);
        QCOMPARE(Said("mnuUpdateWallpaper"), u"Orrelin Help Wizard: Successfully Updated Wallpaper!"_s);
        QVERIFY(SeenRoot().Pixmap() != 0);
        QCOMPARE(WinIni("wallpaper"), Bitmap("planner.bmp"));
    }

    void ClearAndUpdate()
    {
        const FakeDesktop fake("GNOME");
        m_program->Trigger("mnuSetWallpaper");
        QCOMPARE(Said("mnuUpdateWallpaper"), u"Orrelin Help Wizard: Successfully Updated Wallpaper!"_s);
        QVERIFY(fake.Calls().contains("picture-options 'none'")); // otherwise the desktop would keep its cached picture
        QCOMPARE(fake.Kept(m_options), QByteArray("'centered'"));
        const QString before = Ini("WallPaper", "PreviousWallPaper");
        QCOMPARE(Said("mnuClearWallpaper"), u": "_s); // no message
        QCOMPARE(fake.Kept(m_options), QByteArray("'none'"));
        QCOMPARE(WinIni("wallpaper"), u"(None)"_s);
        QCOMPARE(Ini("WallPaper", "PreviousWallPaper"), before);
    }

    void ADesktopThatRefusesIsTold()
    {
        for (const auto& [what, entry, said] : Rows<QByteArray, QString>{
                 {"set", "mnuSetWallpaper",
                  u"Orrelin: Wallpaper setting not successful! Make sure your video "
                  "resolution is in 16 or 256 colors"_s},
                 {"clear", "mnuClearWallpaper", u"Orrelin Help Wizard: Wallpaper Clearing Not Successful!"_s},
                 {"update", "mnuUpdateWallpaper", u"Orrelin Help Wizard: Unable To Update Wallpaper!"_s},
                 {"previous", "mnuPrevWallpaper", u"Orrelin: Unable to restore previous wallpaper!"_s}}) {
            const InRow row(this, what);
            const FakeDesktop fake("GNOME");
            fake.Become("refuses");
            QCOMPARE(Said(entry.constData()), said);
            QCOMPARE(m_program->Panel(Today).Paper(), QColor(paper::Today));
            // WIN.INI is written before the desktop's command runs.
            if (entry == "mnuSetWallpaper") QCOMPARE(WinIni("wallpaper"), Bitmap("planner.bmp"));
        }
    }

    void AFullDiskLeavesTheOldPicture()
    {
        m_program->Trigger("mnuSetWallpaper");
        const QImage before(Bitmap("planner.bmp"));
        m_program->form->resize(900, 600);
        std::optional<FullDisk> full(100000);
        const QString said = Said("mnuSetWallpaper");
        full.reset();
        QVERIFY(said.startsWith(u"Orrelin: Wallpaper setting not successful!"));
        QCOMPARE(QImage(Bitmap("planner.bmp")), before);
        QVERIFY(m_program->Log().contains(" in MainForm, fnSetWallpaper"));
        QCOMPARE(m_program->Panel(Today).Paper(), QColor(paper::Today));
        QCOMPARE(QDir(folders::ApplicationDirectory()).entryList({u"planner.bmp*"_s}).size(), 1);
    }

    void TheOptionsAreKept()
    {
        SetIni("WallPaper", "WallpaperSize", u"1"_s);
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
            m_program->InWindow<WallpaperForm>("mnuWallpaperOption", [key](WallpaperForm& form) {
                In<QRadioButton>(form, "opSetting(0)").click();
                In<QCheckBox>(form, "chkAutoload").click();
                QTest::keyClick(&form, key);
            });
            QCOMPARE(Ini("WallPaper", "WallpaperSize"), key == Qt::Key_Return ? u"0"_s : u"1"_s);
        }
        QCOMPARE(Ini("WallPaper", "Autoupdate"), u"1"_s);
        QVERIFY(!QFile::exists(Bitmap("planner.bmp")));                  // the wallpaper is unchanged
        for (const QString& stored : {u"0"_s, u"1"_s, u"2"_s, u"7"_s}) { // 7 is none of the three
            SetIni("WallPaper", "WallpaperSize", stored);
            const QString shown = stored == u'7' ? u"2"_s : stored;
            m_program->InWindow<WallpaperForm>("mnuWallpaperOption", [&](WallpaperForm& form) {
                QCOMPARE(form.findChild<QRadioButton*>(u"opSetting(%1)"_s.arg(shown))->isChecked(), stored == shown);
                QTest::keyClick(&form, Qt::Key_Return);
            });
            QCOMPARE(Ini("WallPaper", "WallpaperSize"), shown);
        }
    }

    void TheExitRenewsThePicture()
    {
        for (const auto& [what, mode, manner, isMinimized] : Rows<int, QByteArray, bool>{
                 {"not wanted", int(Mainform::CloseBox), "not wanted", false},
                 {"close box", int(Mainform::CloseBox), "", false},
                 {"minimized", int(Mainform::CloseBox), "", true},
                 {"the session ends", int(Mainform::SessionEnds), "", true},
                 {"the session ends, refused", int(Mainform::SessionEnds), "refuses", false},
                 {"ended by a signal, no answer", int(Mainform::ProcessIsEnded), "hangs", false}}) {
            const InRow row(this, what);
            m_program->New(u"notes.mdb"_s);
            const QSize region = Region().size();
            const bool isWanted = manner != "not wanted";
            SetIni("WallPaper", "Autoupdate", isWanted ? u"1"_s : u"2"_s);
            const FakeDesktop fake("GNOME");
            if (!manner.isEmpty()) fake.Become(manner.constData());
            if (isMinimized) m_program->form->showMinimized();
            m_program->form->subExitProgram(mode); // nobody could answer a box
            const qreal ratio = m_program->form->devicePixelRatioF();
            QVERIFY(m_program->form->HasEnded());
            QCOMPARE(QFile::exists(Bitmap("notes.bmp")), isWanted);
            if (!isWanted) continue;
            QCOMPARE(QImage(Bitmap("notes.bmp")).size(), QSize(region.width(), region.height() - 1) * ratio);
            if (manner.isEmpty()) QVERIFY(fake.Kept(m_address).endsWith("/notes.bmp'"));
        }
    }
};

static const Runnable runWallpaperTest("WallpaperTest", [](int argc, char** argv) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const VirtualScreen screen(QSize(2400, 1600));
    return RunTest<WallpaperTest, QApplication>(argc, argv);
});

#include "wallpapertest.moc"
