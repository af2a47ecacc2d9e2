#include "files.h"
#include "hall/menus.h"
#include "platform/desktop/helpbook.h"
#include "platform/desktop/helppage.h"
#include "platform/desktop/helpviewer.h"
#include "support.h"
#include "testmain.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QToolTip>
#include <QTreeWidget>

// The help window with the built help file.
class HelpTest : public QObject
{
    Q_OBJECT

    const QString m_file = QStringLiteral(ORRELIN_HELP_FOLDER "/ORL.HLP");
    std::unique_ptr<HelpBook> m_book;
    std::unique_ptr<QWidget> m_owner;

    QWidget* Window() const { return m_owner->findChild<QWidget*>(u"helpPage"_s)->window(); }
    template <typename Part>
    Part& Find(const char* name) const
    {
        return *m_owner->findChild<Part*>(QString::fromLatin1(name));
    }
    HelpPage& Page() const { return Find<HelpPage>("helpPage"); }
    QStringList Hits() const
    {
        const auto& list = Find<QListWidget>("helpHits");
        QStringList titles;
        for (int i = 0; i < list.count(); ++i)
            titles += list.item(i)->text();
        return titles;
    }
    QStringList MarkedWords() const
    {
        QStringList words;
        for (const QTextEdit::ExtraSelection& mark : Page().extraSelections())
            words += mark.cursor.selectedText().toLower();
        return words;
    }

    void Open(HelpCommand command) const
    {
        QVERIFY(ShowHelp(m_owner.get(), m_file, command));
        QVERIFY(QTest::qWaitForWindowActive(Window()));
    }

    // The menu entries as "File | New Planner", each with its key.
    static QMap<QString, QString> MenuEntries()
    {
        QMenuBar bar;
        const Menus menus(bar);
        QMap<QString, QString> keys;
        const std::function<void(const QString&, const QList<QAction*>&)> add = [&](const auto& path,
                                                                                    const auto& actions) {
            for (const QAction* action : actions) {
                const QString entry = path + action->text().remove(u'&').section(u'\t', 0, 0);
                keys[entry] = action->shortcut().toString();
                if (action->menu()) add(entry + u" | "_s, action->menu()->actions());
            }
        };
        add(QString(), bar.actions());
        return keys;
    }

private Q_SLOTS:
    void init()
    {
        m_owner = std::make_unique<QWidget>();
        m_book = HelpBook::Open(m_file);
        QVERIFY(m_book);
    }

    void cleanup()
    {
        m_owner.reset();
        m_book.reset();
    }

    void EveryTopicLinkAndPictureIsThere()
    {
        static const QRegularExpression Reference(u"(?:href|src)=\"([^\"]*)\""_s);
        static const QRegularExpression Heading(u"<h1>(.*)</h1>"_s);
        QSet<QString> titles;
        for (const HelpTopic& topic : m_book->Topics()) {
            const QString page = QString::fromUtf8(m_book->Read(topic.Page));
            QVERIFY2(!topic.Title.isEmpty() && !titles.contains(topic.Title), qPrintable(topic.Page.toString()));
            titles += topic.Title;
            QVERIFY(!topic.Chapter.isEmpty());
            QCOMPARE(Heading.match(page).captured(1), topic.Title);
            for (const auto& match : Reference.globalMatch(page)) {
                const QString all = topic.Page.fileName() + u' ' + match.captured(1);
                QVERIFY2(m_book->Holds(topic.Page.resolved(QUrl(match.captured(1)))), qPrintable(all));
            }
        }
        // Every page of the file can be reached.
        const QStringList pages = QDir(u":/orrelin-help"_s).entryList({u"*.html"_s});
        QCOMPARE(pages.size(), m_book->Topics().size());
    }

    void CommandsAndKeysAreThoseOfTheMenu()
    {
        static const QRegularExpression Command(u"<b>([^<]* \\| [^<]*)</b>"_s);
        static const QRegularExpression Key(u"<kbd>([^<]*)</kbd></td>\\s*<td>[^<]*</td>\\s*<td>([^<]*)<"_s);
        const QMap<QString, QString> entries = MenuEntries();
        for (const HelpTopic& topic : m_book->Topics()) {
            const QString page = QString::fromUtf8(m_book->Read(topic.Page));
            for (const auto& match : Command.globalMatch(page)) {
                const QString command = match.captured(1).simplified();
                QVERIFY2(entries.contains(command), qPrintable(topic.Page.fileName() + u' ' + command));
            }
        }
        QMap<QString, QString> told;
        const QString keys = QString::fromUtf8(m_book->Read(HelpBook::PageOf(u"keys"_s)));
        for (const auto& match : Key.globalMatch(keys))
            told[match.captured(2)] = match.captured(1);
        QMap<QString, QString> wanted;
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (!entry.value().isEmpty()) wanted.insert(entry.key(), entry.value());
        }
        QCOMPARE(told, wanted);
    }

    void PicturesAreDrawnForTheScreensPixels()
    {
        HelpPage page(*m_book, nullptr);
        page.setSource(HelpBook::PageOf(u"window"_s));
        const auto picture = page.loadResource(QTextDocument::ImageResource, QUrl(u"window.svg"_s)).value<QImage>();
        QCOMPARE(picture.size(), QSize(360, 260) * page.devicePixelRatioF());
        QCOMPARE(picture.devicePixelRatio(), page.devicePixelRatioF());
    }

    void CommandsOpenTheirPages()
    {
        const std::tuple<const char*, HelpCommand, QString, QString> rows[] = {
            {"contents", HelpCommand::Contents, u"welcome"_s, u"helpContents"_s},
            {"how to", HelpCommand::HowToUseHelp, u"using-help"_s, u"helpContents"_s},
            {"search", HelpCommand::Search, u"welcome"_s, u"helpWords"_s},
        };
        for (const auto& [name, command, page, focus] : rows) {
            const InRow inRow(this, name);
            Open(command);
            QVERIFY(!Window()->isModal());
            QCOMPARE(Page().source(), HelpBook::PageOf(page));
            QCOMPARE(Find<QTreeWidget>("helpContents").currentItem()->text(0), Page().documentTitle());
            QCOMPARE(QApplication::focusWidget()->objectName(), focus);
        }
    }

    void OneWindowServesAllCommands()
    {
        Open(HelpCommand::HowToUseHelp);
        QWidget* const first = Window();
        QTest::keyClick(&Page(), Qt::Key_Escape);
        QVERIFY(!first->isVisible());
        Open(HelpCommand::Search);
        QVERIFY(first->isVisible());
        QCOMPARE(m_owner->findChildren<HelpPage*>().size(), 1);
        QCOMPARE(Page().source(), HelpBook::PageOf(u"using-help"_s));
    }

    void KeysGoBackForwardAndHome()
    {
        Open(HelpCommand::Contents);
        QTest::keyClick(&Find<QTreeWidget>("helpContents"), Qt::Key_Down);
        const QUrl second = m_book->Topics()[1].Page;
        QCOMPARE(Page().source(), second);
        QTest::keyClick(&Page(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(Page().source(), m_book->Topics()[0].Page);
        QVERIFY(!Find<QAction>("helpBack").isEnabled());
        QTest::keyClick(&Page(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(Page().source(), second);
        QTest::keyClick(&Page(), Qt::Key_Home, Qt::AltModifier);
        QCOMPARE(Page().source(), m_book->Topics()[0].Page);
    }

    void SearchFindsTopics()
    {
        const std::tuple<const char*, QString, QString, bool> rows[] = {
            {"title before text", u"tunes"_s, u"Tunes"_s, false},
            {"beginning", u"WALLP"_s, u"Your calendar as wallpaper"_s, false},
            {"several words", u"  stretched  edge "_s, u"Your calendar as wallpaper"_s, true},
            {"key", u"ctrl+l"_s, u"Your calendar as wallpaper"_s, false},
            {"inside a word", u"allpaper"_s, u""_s, true},
            {"no pattern", u".*"_s, u""_s, true},
            {"one word nowhere", u"wallpaper zebra"_s, u""_s, true},
            {"nothing", u" "_s, u""_s, true},
        };
        for (const auto& [name, typed, first, only] : rows) {
            const InRow inRow(this, name);
            Open(HelpCommand::Search);
            QTest::keyClicks(&Find<QLineEdit>("helpWords"), typed);
            QCOMPARE(Hits().value(0), first);
            QCOMPARE(Hits().size() > 1, !only);
            QCOMPARE(Find<QLabel>("helpFound").text().isEmpty(), typed.trimmed().isEmpty());
        }
    }

    void FoundWordsAreMarkedWhileSearching()
    {
        Open(HelpCommand::Search);
        QTest::keyClicks(&Find<QLineEdit>("helpWords"), u"silence tick"_s);
        QTest::keyClick(&Find<QLineEdit>("helpWords"), Qt::Key_Return);
        QCOMPARE(Page().documentTitle(), Hits().value(0));
        const QStringList marked = MarkedWords();
        QVERIFY(marked.contains(u"silence") && marked.contains(u"tick"));
        QTest::keyClick(Window(), Qt::Key_F3);
        QCOMPARE(Page().textCursor().selectedText().toLower(), marked.value(0));
        QTest::keyClick(Window(), Qt::Key_F3);
        QCOMPARE(Page().textCursor().selectedText().toLower(), marked.value(1));
        Find<QTabWidget>("helpTabs").setCurrentIndex(0);
        QVERIFY(MarkedWords().isEmpty());
    }

    void NothingOutsideIsFetched()
    {
        QTemporaryDir folder;
        const QString secret = folder.filePath(u"secret.html"_s);
        SetContent(secret, "<p>secret</p>");
        HelpPage page(*m_book, nullptr);
        const QUrl home = HelpBook::PageOf(u"welcome"_s);
        page.setSource(home);
        for (const QUrl& outside : {QUrl::fromLocalFile(secret), QUrl(u"https://example.org"_s),
                                    QUrl(u"qrc:/icons/new.svg"_s), QUrl(u"qrc:/orrelin-help/../icons/new.svg"_s)}) {
            page.setSource(outside);
            QCOMPARE(page.source(), home);
            QVERIFY(page.loadResource(QTextDocument::HtmlResource, outside).isNull());
            QVERIFY(page.loadResource(QTextDocument::ImageResource, outside).isNull());
        }
        QToolTip::hideText();
    }

    void ADamagedFileIsRefused()
    {
        const QByteArray whole = Content(m_file);
        QByteArray flipped = whole;
        flipped[whole.size() / 2] = char(~flipped[whole.size() / 2]);
        const std::pair<const char*, QByteArray> rows[] = {
            {"empty", ""},
            {"text", QByteArray("This is not a help file.\n").repeated(100)},
            {"header alone", whole.left(24)},
            {"half", whole.left(whole.size() / 2)},
            {"last byte", whole.chopped(1)},
            {"without its sum", whole.chopped(64)},
            {"one byte changed", flipped},
        };
        for (const auto& [name, content] : rows) {
            const InRow inRow(this, name);
            QTemporaryDir folder;
            const QString damaged = folder.filePath(u"ORL.HLP"_s);
            SetContent(damaged, content);
            QVERIFY(!ShowHelp(m_owner.get(), damaged, HelpCommand::Contents));
            QVERIFY(!ShowHelp(m_owner.get(), folder.path(), HelpCommand::Contents));
            QVERIFY(!ShowHelp(m_owner.get(), folder.filePath(u"none"_s), HelpCommand::Contents));
            QVERIFY(!ShowHelp(m_owner.get(), QString(), HelpCommand::Contents));
            QVERIFY(m_owner->children().isEmpty());
        }
    }

    void TheFileLiesBesideTheProgramInAnyCase()
    {
        const QString own = QCoreApplication::applicationDirPath() + u"/ORL.HLP"_s;
        QCOMPARE(folders::Shipped(u"Orl.HLP"_s), QString());
        QVERIFY(QFile::copy(m_file, own));
        QCOMPARE(folders::Shipped(u"Orl.HLP"_s), own);
        QVERIFY(QFile::remove(own));
    }
};

ORRELIN_TEST(HelpTest)
#include "helptest.moc"
