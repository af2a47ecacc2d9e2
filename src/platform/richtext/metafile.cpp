#include "platform/richtext/metafile.h"

#include "platform/richtext/boundedimage.h"

#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr double MostCanvas = 8'000'000;       // pixels
constexpr double MostPainted = 3 * MostCanvas; // pixels; each of many small bitmaps may be stretched over the whole
constexpr quint32 PlaceableKey = 0x9AC6CDD7;
constexpr int PlaceableWords = 11;
constexpr int HeaderWords = 9;

enum Function : quint16
{
    End = 0,
    SetWindowOrigin = 0x020B,
    SetWindowExtent = 0x020C
};

// Positions of the parameters of a bitmap record, in words.
struct Layout
{
    quint16 function;
    int operation; // or -1: copies
    int sourceHeight, sourceWidth, sourceY, sourceX;
    int height, width, y, x;
    int bitmap;
    bool isFromBottom; // the source's y counts from below
};
constexpr Layout Layouts[] = {{0x0940, 0, 4, 5, 2, 3, 4, 5, 6, 7, 8, false},
                              {0x0B41, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10, false},
                              {0x0D33, -1, 5, 6, 3, 4, 5, 6, 7, 8, 9, true},
                              {0x0F43, 0, 3, 4, 5, 6, 7, 8, 9, 10, 11, true}};

struct Operation
{
    quint32 code;
    QPainter::CompositionMode mode;
};
constexpr Operation Operations[] = {{0x00660046, QPainter::RasterOp_SourceXorDestination},
                                    {0x008800C6, QPainter::RasterOp_SourceAndDestination},
                                    {0x00EE0086, QPainter::RasterOp_SourceOrDestination}};

QPainter::CompositionMode ModeOf(quint32 code)
{
    const auto known = std::ranges::find(Operations, code, &Operation::code);
    return known == std::end(Operations) ? QPainter::CompositionMode_Source : known->mode;
}

// A span on one axis of the window; it may run backwards.
struct Span
{
    double begin = 0;
    double length = 0;
};

struct Blit
{
    QByteArray file;
    QRect source; // in the file's image
    Span across, down;
    QPainter::CompositionMode mode;
    QImage image; // the source's pixels, set by ReadImages
};

class Player
{
public:
    explicit Player(QByteArrayView metafile);

    QSize CanvasSize() const; // empty if there is no bitmap
    QImage Paint();

private:
    int WordAt(qsizetype at) const { return m_begin + at < m_words ? qFromLittleEndian<qint16>(Data(at)) : 0; }
    quint32 NumberAt(qsizetype at) const
    {
        return m_begin + at + 1 < m_words ? qFromLittleEndian<quint32>(Data(at)) : 0;
    }
    const char* Data(qsizetype at) const { return m_metafile.data() + 2 * (m_begin + at); }

    void Play(quint16 function, qsizetype end);
    void Add(const Layout& layout, qsizetype end);
    Span Window(Span Blit::*side, double begin, double length) const;
    Span Across() const { return Window(&Blit::across, m_originX, m_extentX); }
    Span Down() const { return Window(&Blit::down, m_originY, m_extentY); }
    void ReadImages();
    QImage PaintOn(QRgb ground, QSize size) const;

    QByteArrayView m_metafile;
    qsizetype m_words;
    qsizetype m_begin = 0;            // parameters of the current record, in words
    qint64 m_pixelsLeft = MostPixels; // for all bitmaps
    double m_originX = 0, m_originY = 0, m_extentX = 0, m_extentY = 0;
    std::vector<Blit> m_blits;
};

Player::Player(QByteArrayView metafile) : m_metafile(metafile), m_words(metafile.size() / 2)
{
    constexpr int RecordWords = 3;
    if (NumberAt(0) == PlaceableKey) m_begin = PlaceableWords;
    if (WordAt(0) < 1 || WordAt(0) > 2 || WordAt(1) != HeaderWords) return;
    for (qsizetype record = m_begin + HeaderWords; record + RecordWords <= m_words;) {
        m_begin = record;
        const quint32 length = NumberAt(0);
        const auto function = static_cast<quint16>(WordAt(2));
        if (length < RecordWords || function == End) return;
        const qsizetype end = std::min<qsizetype>(m_words, record + length);
        m_begin += RecordWords;
        Play(function, end);
        record = end;
    }
}

void Player::Play(quint16 function, qsizetype end)
{
    if (function == SetWindowOrigin) {
        m_originY = WordAt(0);
        m_originX = WordAt(1);
    } else if (function == SetWindowExtent) {
        m_extentY = WordAt(0);
        m_extentX = WordAt(1);
    }
    const auto layout = std::ranges::find(Layouts, function, &Layout::function);
    if (layout != std::end(Layouts) && m_begin + layout->bitmap < end) Add(*layout, end);
}

void Player::Add(const Layout& layout, qsizetype end)
{
    const qsizetype bytes = 2 * (end - m_begin - layout.bitmap);
    const QByteArray file = ToBitmapFile(m_metafile.sliced(2 * (m_begin + layout.bitmap), bytes));
    const QSize size = ImageSize(file);
    m_pixelsLeft -= qint64(size.width()) * size.height();
    if (size.isEmpty() || m_pixelsLeft < 0) return;
    QRect source(WordAt(layout.sourceX), WordAt(layout.sourceY), WordAt(layout.sourceWidth),
                 WordAt(layout.sourceHeight));
    if (layout.isFromBottom) source.moveTop(size.height() - source.top() - source.height());
    source &= QRect(QPoint(), size);
    const Span across(WordAt(layout.x), WordAt(layout.width));
    const Span down(WordAt(layout.y), WordAt(layout.height));
    if (source.isEmpty() || across.length == 0 || down.length == 0) return;
    const auto mode = layout.operation < 0 ? QPainter::CompositionMode_Source : ModeOf(NumberAt(layout.operation));
    m_blits.push_back({file, source, across, down, mode, {}});
}

// The window on one axis. If the metafile sets none, the area that the bitmaps cover.
Span Player::Window(Span Blit::*side, double begin, double length) const
{
    if (length != 0) return {begin, length};
    double least = std::numeric_limits<double>::max(), most = std::numeric_limits<double>::lowest();
    for (const Blit& blit : m_blits) {
        const auto [low, high] = std::minmax({(blit.*side).begin, (blit.*side).begin + (blit.*side).length});
        least = std::min(least, low);
        most = std::max(most, high);
    }
    return {least, most - least};
}

QSize Player::CanvasSize() const
{
    if (m_blits.empty()) return {};
    const Span across = Across(), down = Down();
    double scaleX = 0, scaleY = 0;
    for (const Blit& blit : m_blits) {
        scaleX = std::max(scaleX, blit.source.width() / std::abs(blit.across.length));
        scaleY = std::max(scaleY, blit.source.height() / std::abs(blit.down.length));
    }
    const double width = std::max(1.0, std::abs(across.length) * scaleX);
    const double height = std::max(1.0, std::abs(down.length) * scaleY);
    const double factor = std::min(1.0, std::sqrt(MostCanvas / width / height));
    return QSizeF(width * factor, height * factor).toSize().expandedTo({1, 1}).boundedTo({16384, 16384});
}

void Player::ReadImages()
{
    for (Blit& blit : m_blits)
        blit.image = ReadImage(blit.file, ImageSize(blit.file)).convertToFormat(QImage::Format_RGB32).copy(blit.source);
    std::erase_if(m_blits, [](const Blit& blit) { return blit.image.isNull(); });
}

QImage Player::PaintOn(QRgb ground, QSize size) const
{
    const Span across = Across(), down = Down();
    QImage canvas(size, QImage::Format_RGB32);
    canvas.fill(ground);
    QPainter painter(&canvas);
    const double scaleX = size.width() / across.length, scaleY = size.height() / down.length;
    double left = MostPainted;
    for (const Blit& blit : m_blits) {
        const QRectF target((blit.across.begin - across.begin) * scaleX, (blit.down.begin - down.begin) * scaleY,
                            blit.across.length * scaleX, blit.down.length * scaleY);
        const QRectF covered = target.normalized() & QRectF(canvas.rect());
        left -= covered.width() * covered.height();
        if (left < 0) break;
        painter.setCompositionMode(blit.mode);
        painter.drawImage(target.normalized(), blit.image.mirrored(target.width() < 0, target.height() < 0));
    }
    return canvas;
}

// Icons are painted as a mask, which clears their shape, and colours over it. Pixels that are the same on black and
// white ground are opaque; pixels that show the ground are transparent. On black ground the colours are already
// multiplied by alpha.
QImage Player::Paint()
{
    ReadImages();
    const QSize size = CanvasSize();
    if (size.isEmpty()) return {};
    const QImage onBlack = PaintOn(0xFF000000, size);
    const QImage onWhite = PaintOn(0xFFFFFFFF, size);
    QImage merged(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        const auto* black = reinterpret_cast<const QRgb*>(onBlack.constScanLine(y));
        const auto* white = reinterpret_cast<const QRgb*>(onWhite.constScanLine(y));
        auto* out = reinterpret_cast<QRgb*>(merged.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int alpha = 255 - std::max(0, qGreen(white[x]) - qGreen(black[x]));
            out[x] = qRgba(std::min(qRed(black[x]), alpha), std::min(qGreen(black[x]), alpha),
                           std::min(qBlue(black[x]), alpha), alpha);
        }
    }
    return merged;
}

} // namespace

QImage BitmapsOfMetafile(QByteArrayView metafile)
{
    return Player(metafile).Paint();
}

QSize SizeOfMetafile(QByteArrayView metafile)
{
    return Player(metafile).CanvasSize();
}
