#include "platform/richtext/rtfpicture.h"

#include <QCryptographicHash>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace {

constexpr double g_twipsInPixel = 15;
constexpr double g_metricInPixel = 2540 / 96.0; // hundredths of a millimetre
constexpr double g_leastSide = 8;
constexpr double g_greatestSide = 4096;
constexpr int g_defaultSide = 32;

// What a group says of itself, while it is copied in a form of its own: 7-bit, data in hexadecimal digits, and always
// the same bytes for the same tokens.
class Copier
{
public:
    explicit Copier(QByteArrayView word) : m_source("{\\" + word.toByteArray()), m_isPicture(word == "pict") {}

    RtfPicture CopyFrom(RtfTokenizer& tokenizer);

private:
    void Copy(const RtfToken& token);
    void CopySymbol(char symbol);
    void CopyWord(const RtfToken& token);
    void CopyData(QByteArrayView data);
    void CopyHex(int byte);
    void Separate();
    double Side(const char* goal, const char* plain, const char* scale) const;

    QByteArray m_source;
    QHash<QByteArray, int> m_numbers; // of the first picture in the group
    bool m_isPicture;
    bool m_hasData = false;
    bool m_isAfterWord = true;
};

RtfPicture Copier::CopyFrom(RtfTokenizer& tokenizer)
{
    int depth = 1;
    for (RtfTokenizer ahead = tokenizer;; tokenizer = ahead) {
        const RtfToken token = ahead.Next();
        if (token.kind == RtfToken::Open) ++depth;
        if (token.kind == RtfToken::Close) --depth;
        if (token.kind == RtfToken::End || depth == 0) break;
        Copy(token);
    }
    m_source.append(depth, '}');
    if (depth == 0) m_source.append('}');
    const QSizeF size(Side("picwgoal", "picw", "picscalex"), Side("pichgoal", "pich", "picscaley"));
    return {std::move(m_source), m_hasData, size};
}

void Copier::Copy(const RtfToken& token)
{
    switch (token.kind) {
    case RtfToken::Open:
        m_source += '{';
        break;
    case RtfToken::Close:
        m_source += '}';
        break;
    case RtfToken::Word:
        CopyWord(token);
        return;
    case RtfToken::Symbol:
        CopySymbol(token.bytes[0]);
        break;
    case RtfToken::Hex:
        CopyHex(token.parameter);
        break;
    case RtfToken::Text:
        CopyData(token.bytes);
        break;
    case RtfToken::Binary:
        Separate();
        m_source += token.bytes.toByteArray().toHex();
        m_hasData = m_hasData || m_isPicture;
        break;
    case RtfToken::End:
        break;
    }
    m_isAfterWord = false;
}

void Copier::CopySymbol(char symbol)
{
    if (symbol > ' ' && symbol < 127) (m_source += '\\') += symbol;
}

void Copier::CopyWord(const RtfToken& token)
{
    m_source += '\\' + token.bytes.toByteArray();
    if (token.hasParameter) m_source += QByteArray::number(token.parameter);
    m_isAfterWord = true;
    m_isPicture = m_isPicture || token.IsWord("pict");
    const QByteArray name = token.bytes.toByteArray();
    if (m_isPicture && name.startsWith("pic") && !m_numbers.contains(name)) m_numbers.insert(name, token.parameter);
    if (m_isPicture && name == "wmetafile") m_numbers.insert("isMetric", 1);
}

void Copier::CopyData(QByteArrayView data)
{
    Separate();
    for (const char byte : data) {
        if (static_cast<unsigned char>(byte) > 126)
            CopyHex(static_cast<unsigned char>(byte));
        else if (byte == '\\' || byte == '{' || byte == '}')
            (m_source += '\\') += byte;
        else
            m_source += byte;
    }
    m_hasData = m_hasData || (m_isPicture && std::ranges::any_of(data, [](char byte) { return byte > ' '; }));
}

void Copier::CopyHex(int byte)
{
    const char value = static_cast<char>(byte);
    m_source += "\\'" + QByteArray(&value, 1).toHex();
}

void Copier::Separate()
{
    if (std::exchange(m_isAfterWord, false)) m_source += ' ';
}

double Copier::Side(const char* goal, const char* plain, const char* scale) const
{
    const double unit = m_numbers.contains("isMetric") ? g_metricInPixel : 1;
    const double goalPixels = m_numbers.value(goal) / g_twipsInPixel;
    const double plainPixels = m_numbers.value(plain) / unit;
    const double pixels = goalPixels > 0 ? goalPixels : plainPixels > 0 ? plainPixels : g_defaultSide;
    const int percent = m_numbers.value(scale, 100);
    return std::clamp(percent > 0 ? pixels * percent / 100 : pixels, g_leastSide, g_greatestSide);
}

QImage DrawFrame()
{
    constexpr QRgb paper = 0xFFF6F3EC;
    constexpr QRgb line = 0xFF6B6F76;
    QImage image(192, 144, QImage::Format_RGB32);
    image.fill(paper);
    QPainter painter(&image);
    painter.setPen(QPen(QColor(line), 3));
    painter.drawRect(image.rect().adjusted(1, 1, -2, -2));
    return image;
}

// One image serves them all, scaled, so that many pictures take no more memory than one.
const QImage& Frame()
{
    static const QImage frame = DrawFrame();
    return frame;
}

} // namespace

RtfPicture ReadRtfPicture(RtfTokenizer& tokenizer, QByteArrayView word)
{
    return Copier(word).CopyFrom(tokenizer);
}

QTextImageFormat ToImageFormat(const RtfPicture& picture, QTextDocument& document)
{
    const QByteArray digest = QCryptographicHash::hash(picture.source, QCryptographicHash::Sha1).toHex();
    const QString name = QStringLiteral("picture:") + QString::fromLatin1(digest);
    document.addResource(QTextDocument::ImageResource, QUrl(name), Frame());
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(picture.size.width());
    format.setHeight(picture.size.height());
    format.setProperty(g_pictureSourceProperty, picture.source);
    return format;
}
