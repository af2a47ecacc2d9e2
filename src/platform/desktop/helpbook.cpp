#include "platform/desktop/helpbook.h"

#include <QCryptographicHash>
#include <QFile>
#include <QResource>
#include <QTextDocument>

#include <algorithm>

namespace {
const QString Root = u"/orrelin-help"_s; // used by the help only

constexpr qsizetype SealSize = 64; // the file ends with its SHA-256 as hexadecimal digits

constexpr qsizetype LargestFile = 64 * 1024 * 1024; // a hundred times the usual size

// The toolkit trusts all offsets in a resource, so a damaged one could crash the program.
QByteArray ReadSealed(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray content = file.read(LargestFile);
    if (content.size() <= SealSize) return {};
    const QByteArray seal = content.last(SealSize);
    content.chop(SealSize);
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex() == seal ? content : QByteArray();
}

QString PathIn(const QUrl& address)
{
    const bool inside = address.scheme() == u"qrc" && address.path().startsWith(Root + u'/');
    return inside ? u':' + address.path() : QString();
}

QString TitleOf(const QByteArray& page)
{
    static const QRegularExpression Title(u"<title>(.*)</title>"_s);
    return Title.match(QString::fromUtf8(page)).captured(1);
}

QString TextOf(const QByteArray& page)
{
    QTextDocument document;
    document.setHtml(QString::fromUtf8(page));
    return document.toPlainText();
}

bool HoldsAll(const QString& text, const QList<QRegularExpression>& words)
{
    return std::all_of(words.begin(), words.end(), [&](const auto& word) { return text.contains(word); });
}
} // namespace

std::unique_ptr<HelpBook> HelpBook::Open(const QString& file)
{
    QByteArray resource = ReadSealed(file);
    if (resource.isEmpty()) return nullptr;
    std::unique_ptr<HelpBook> book(new HelpBook(std::move(resource)));
    if (book->m_topics.isEmpty()) return nullptr;
    return book;
}

HelpBook::HelpBook(QByteArray resource) : m_resource(std::move(resource))
{
    QResource::registerResource(reinterpret_cast<const uchar*>(m_resource.constData()), Root);
    ReadContents();
}

HelpBook::~HelpBook()
{
    QResource::unregisterResource(reinterpret_cast<const uchar*>(m_resource.constData()), Root);
}

// A line of contents.txt is a page name, or "# " and the heading of the following pages.
void HelpBook::ReadContents()
{
    const QByteArray contents = Read(QUrl(u"qrc:%1/contents.txt"_s.arg(Root)));
    QString chapter;
    for (const QString& line : QString::fromUtf8(contents).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u"# ")) {
            chapter = line.mid(2);
            continue;
        }
        const QUrl page = PageOf(line);
        m_topics.append({chapter, TitleOf(Read(page)), page});
    }
}

QUrl HelpBook::PageOf(const QString& name)
{
    return QUrl(u"qrc:%1/%2.html"_s.arg(Root, name));
}

bool HelpBook::Holds(const QUrl& address) const
{
    return QFile::exists(PathIn(address));
}

QByteArray HelpBook::Read(const QUrl& address) const
{
    QFile file(PathIn(address));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QList<qsizetype> HelpBook::Search(const QString& typed)
{
    const QList<QRegularExpression> words = WordsOf(typed);
    if (words.isEmpty()) return {};
    if (m_texts.isEmpty()) {
        for (const HelpTopic& topic : m_topics)
            m_texts.append(TextOf(Read(topic.Page)));
    }
    QList<qsizetype> inTitle;
    QList<qsizetype> inText;
    for (qsizetype i = 0; i < m_topics.size(); ++i) {
        if (HoldsAll(m_topics[i].Title, words))
            inTitle.append(i);
        else if (HoldsAll(m_texts[i], words))
            inText.append(i);
    }
    return inTitle + inText;
}

QList<QRegularExpression> HelpBook::WordsOf(const QString& typed)
{
    QList<QRegularExpression> words;
    for (const QString& word : typed.simplified().split(u' ', Qt::SkipEmptyParts)) {
        words.append(QRegularExpression(u"(?<!\\w)"_s + QRegularExpression::escape(word),
                                        QRegularExpression::CaseInsensitiveOption |
                                            QRegularExpression::UseUnicodePropertiesOption));
    }
    return words;
}
