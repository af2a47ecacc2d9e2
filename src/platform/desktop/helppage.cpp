#include "platform/desktop/helppage.h"

#include <QBuffer>
#include <QCursor>
#include <QEvent>
#include <QImageReader>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

namespace {
constexpr int Margin = 12; // pixels around the page

// A mix of paper and selection colour, on which text is readable in light and dark themes.
QColor MarkColor(const QPalette& palette)
{
    const QColor paper = palette.color(QPalette::Base);
    const QColor strong = palette.color(QPalette::Highlight);
    const auto between = [](int first, int second) { return (2 * first + second) / 3; };
    return {between(paper.red(), strong.red()), between(paper.green(), strong.green()),
            between(paper.blue(), strong.blue())};
}

// Default links may be dark blue on dark paper.
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

// Rendered for the screen's pixels: scaling afterwards would blur them.
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
    // The style sheet reads the palette when a page is loaded.
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload();
}
