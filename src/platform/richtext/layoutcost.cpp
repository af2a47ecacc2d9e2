#include "platform/richtext/layoutcost.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <memory>

namespace {

constexpr qsizetype ShortWord = 256;          // letters; the square of shorter words does not matter
constexpr qint64 MostWork = 4000LL * 4000;    // one square or a sum; takes some milliseconds
constexpr qsizetype PieceOfText = 2 * 4096;   // letters; without a place to break they exceed MostWork
constexpr int MostRuns = 4000;                // in one paragraph
constexpr qsizetype LongParagraph = 4 * 4096; // letters

// What makes the layout expensive.
struct Excess
{
    qint64 work = 0; // sum of the squared lengths of long words
    int crowded = 0; // number of paragraphs with more than MostRuns
};

// A paragraph's share of the sum, subtracted when the paragraph is deleted.
class Share : public QTextBlockUserData
{
public:
    Share(std::shared_ptr<Excess> sum, const Excess& own) : m_sum(std::move(sum)), m_own(own)
    {
        m_sum->work += m_own.work;
        m_sum->crowded += m_own.crowded;
    }
    ~Share() override
    {
        m_sum->work -= m_own.work;
        m_sum->crowded -= m_own.crowded;
    }
    Q_DISABLE_COPY_MOVE(Share)

private:
    std::shared_ptr<Excess> m_sum; // may outlive LayoutCost
    Excess m_own;
};

qint64 Square(qsizetype length)
{
    return length > ShortWord ? qint64(length) * length : 0;
}

// Work of text without blanks, which may have other places to break. Examined in pieces, so that the beginning of a
// long word suffices.
qint64 WorkOfWord(QStringView word)
{
    qint64 work = 0;
    while (word.size() > ShortWord && work <= MostWork) {
        const QStringView piece = word.first(std::min(word.size(), PieceOfText));
        QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, piece);
        qsizetype start = 0;
        for (qsizetype at = breaks.toNextBoundary(); at > 0 && at < piece.size(); at = breaks.toNextBoundary()) {
            work += Square(at - start);
            start = at;
        }
        const bool isLast = start == 0 || piece.size() == word.size();
        if (isLast) work += Square(piece.size() - start);
        word = isLast ? QStringView() : word.sliced(start);
    }
    return work;
}

bool IsGap(QChar one)
{
    return one == u' ' || one == u'\t' || one == QChar::LineSeparator;
}

qint64 WorkOf(QStringView text)
{
    qint64 work = 0;
    for (auto begin = text.begin(); begin != text.end() && work <= MostWork;) {
        const auto end = std::find_if(begin, text.end(), IsGap);
        work += WorkOfWord(QStringView(begin, end));
        begin = std::find_if_not(end, text.end(), IsGap);
    }
    return work;
}

bool IsCrowded(const QTextBlock& block)
{
    if (block.length() <= MostRuns) return false;
    int runs = 0;
    for (auto at = block.begin(); !at.atEnd() && runs <= MostRuns; ++at)
        ++runs;
    return runs > MostRuns;
}

bool IsLong(const QTextBlock& block)
{
    return block.length() > LongParagraph;
}

template <typename Visit>
void VisitLong(const QTextDocument& document, Visit visit)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (IsLong(block)) visit(block);
}

class LayoutCost : public QObject
{
public:
    explicit LayoutCost(QTextEdit& box) : QObject(&box), m_box(box), m_usualWrap(box.wordWrapMode())
    {
        const QTextDocument& document = *box.document();
        connect(&document, &QTextDocument::contentsChange, this,
                [this](int position, int, int added) { Follow(position, position + added); });
        connect(&document, &QTextDocument::contentsChanged, this, [this] { m_box.document()->setLayoutEnabled(true); });
    }

private:
    void Follow(int begin, int end)
    {
        VisitBlocks(begin, end, [this](QTextBlock block) { Weigh(block); });
        const bool wrapsAnywhere = m_sum->work > MostWork;
        const bool isUnkerned = wrapsAnywhere || m_sum->crowded > 0;
        const auto wrap = wrapsAnywhere ? QTextOption::WrapAnywhere : m_usualWrap;
        const auto strategy = isUnkerned ? QFont::PreferNoShaping : QFont::PreferDefault;
        if (m_box.wordWrapMode() == wrap && m_box.document()->defaultFont().styleStrategy() == strategy) return;
        // The document would lay out the change now. Layout is off until all is set, and nothing reads lines of the old
        // text meanwhile.
        VisitBlocks(begin, end, [](QTextBlock block) { block.clearLayout(); });
        Set(wrap, strategy);
    }

    template <typename Visit>
    void VisitBlocks(int begin, int end, Visit visit)
    {
        for (QTextBlock block = m_box.document()->findBlock(begin); block.isValid() && block.position() <= end;
             block = block.next())
            visit(block);
    }

    void Weigh(QTextBlock& block)
    {
        const Excess own{block.length() > ShortWord ? WorkOf(block.text()) : 0, IsCrowded(block)};
        if (block.userData() || own.work > 0 || own.crowded > 0)
            block.setUserData(new Share(m_sum, own)); // owned by the block
        // The cache avoids shaping the text for each painting. The caret alone paints it twice a second.
        if (IsLong(block)) block.layout()->setCacheEnabled(true);
    }

    void Set(QTextOption::WrapMode wrap, QFont::StyleStrategy strategy)
    {
        QTextDocument& document = *m_box.document();
        document.setLayoutEnabled(false);
        m_box.setWordWrapMode(wrap);
        QFont font = document.defaultFont();
        font.setStyleStrategy(strategy);
        document.setDefaultFont(font);
    }

    QTextEdit& m_box;
    const QTextOption::WrapMode m_usualWrap;
    const std::shared_ptr<Excess> m_sum = std::make_shared<Excess>();
};

} // namespace

void BoundLayoutCost(QTextEdit& box)
{
    new LayoutCost(box);
}

WithoutLines::WithoutLines(QTextDocument& document) : m_document(document)
{
    VisitLong(m_document, [](QTextBlock block) { block.clearLayout(); });
}

WithoutLines::~WithoutLines()
{
    VisitLong(m_document, [this](const QTextBlock& block) {
        if (block.layout()->lineCount() == 0) m_document.markContentsDirty(block.position(), block.length());
    });
}
