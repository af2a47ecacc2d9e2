#include "platform/desktop/helppage.h"

#include <QBuffer>
#include <QCursor>
#include <QEvent>
#include <QImageReader>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

namespace {
constexpr int Margin = 12; // pixels between a page and its frame

// Half way between paper and the selection's colour, so that the ink on it stays legible in light and dark.
QColor MarkColor(const QPalette& palette)
{
    const QColor paper = palette.color(QPalette::Base);
    const QColor strong = palette.color(QPalette::Highlight);
    const auto between = [](int first, int second) { return (2 * first + second) / 3; };
    return {between(paper.red(), strong.red()), between(paper.green(), strong.green()),
            between(paper.blue(), strong.blue())};
}

// The toolkit's own links are a dark blue on dark paper too, unless the desktop thought of it.
QColor LinkColor(const QPalette& palette)
{
    QColor link = palette.color(QPalette::Link);
    const bool darkOnDark = palette.color(QPalette::Base).lightnessF() < 0.5 && link.lightnessF() < 0.7;
    if (darkOnDark) link.setHslF(link.hslHueF(), link.hslSaturationF(), 0.75);
    return link;
}
} // namespace

HelpPage::HelpPage(const HelpBook& book, QWidget* parent) : QTextBrowser(parent), m_book(book)
{
    setOpenExternalLinks(false);
    document()->setDocumentMargin(Margin);
    connect(this, &QTextBrowser::sourceChanged, this, &HelpPage::Mark);
}

void HelpPage::MarkWords(const QList<QRegularExpression>& words)
{
    m_words = words;
    Mark();
}

void HelpPage::Mark()
{
    QList<ExtraSelection> marks;
    QTextCharFormat format;
    format.setBackground(MarkColor(palette()));
    for (const QRegularExpression& word : m_words) {
        QTextCursor found(document());
        while (!(found = document()->find(word, found)).isNull())
            marks.append({found, format});
    }
    std::sort(marks.begin(), marks.end(), [](const auto& one, const auto& other) { return one.cursor < other.cursor; });
    setExtraSelections(marks);
}

void HelpPage::GoToNextMark()
{
    const QList<ExtraSelection> marks = extraSelections();
    if (marks.isEmpty()) return;
    const int caret = textCursor().selectionStart();
    const bool onMark = textCursor().hasSelection();
    const auto next = std::find_if(marks.begin(), marks.end(), [&](const ExtraSelection& mark) {
        const int start = mark.cursor.selectionStart();
        return onMark ? start > caret : start >= caret;
    });
    setTextCursor((next == marks.end() ? marks.first() : *next).cursor);
}

// Pictures are drawn for the screen's own pixels: scaled up afterwards they would be blurred.
QVariant HelpPage::Picture(const QUrl& address) const
{
    QByteArray content = m_book.Read(address);
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    reader.setScaledSize(reader.size() * devicePixelRatioF());
    QImage picture = reader.read();
    picture.setDevicePixelRatio(devicePixelRatioF());
    return picture;
}

QVariant HelpPage::loadResource(int type, const QUrl& address)
{
    const QUrl absolute = source().resolved(address);
    if (!m_book.Holds(absolute)) return {};
    switch (type) {
    case QTextDocument::ImageResource:
        return Picture(absolute);
    case QTextDocument::StyleSheetResource:
        return m_book.Read(absolute) + "a { color: " + LinkColor(palette()).name().toLatin1() + "; }";
    default:
        return m_book.Read(absolute);
    }
}

void HelpPage::doSetSource(const QUrl& address, QTextDocument::ResourceType type)
{
    const QUrl absolute = source().resolved(address);
    if (m_book.Holds(absolute))
        QTextBrowser::doSetSource(absolute, type);
    else
        QToolTip::showText(QCursor::pos(), u"Not part of this help: "_s + address.toString(), this);
}

void HelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // The style sheet takes its colours from the palette when a page is read.
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload();
}
