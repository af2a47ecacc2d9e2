#include "platform/richtext/rtfpicture.h"

#include "platform/look/paper.h"

#include <QCryptographicHash>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace {

constexpr double TwipsInPixel = 15;
constexpr double MetricInPixel = 2540 / 96.0; // hundredths of a millimetre
constexpr double LeastSide = 8;
constexpr double GreatestSide = 4096;
constexpr int DefaultSide = 32;

// What a group says of itself, while it is copied in a form of its own: 7-bit, data in hexadecimal digits, and always
// the same bytes for the same tokens.
class Copier
{
public:
    explicit Copier(QByteArrayView word) : m_source("{\\" + word.toByteArray()), m_pictureDepth(word == "pict" ? 1 : 0)
    {
    }

    RtfPicture CopyFrom(RtfTokenizer& tokenizer);

private:
    void Copy(const RtfToken& token);
    void CopySymbol(char symbol);
    void CopyWord(const RtfToken& token);
    void CopyData(QByteArrayView data);
    void CopyBinary(QByteArrayView data);
    void CopyHex(int byte);
    void CopyLetter(char letter);
    void CopyBrace(char brace);
    bool IsInPicture() const { return m_depth == m_pictureDepth; }
    double Side(const char* goal, const char* plain, const char* scale) const;

    QByteArray m_source;
    QHash<QByteArray, int> m_numbers; // by their words, of the first picture in the group
    int m_depth = 1;
    int m_pictureDepth;
    bool m_hasData = false;
    bool m_isAfterWord = true;
};

RtfPicture Copier::CopyFrom(RtfTokenizer& tokenizer)
{
    for (RtfTokenizer ahead = tokenizer;; tokenizer = ahead) {
        const RtfToken token = ahead.Next();
        if (token.kind == RtfToken::End || (token.kind == RtfToken::Close && m_depth == 1)) break;
        Copy(token);
    }
    m_source.append(m_depth, '}');
    const QSizeF size(Side("picwgoal", "picw", "picscalex"), Side("pichgoal", "pich", "picscaley"));
    return {std::move(m_source), m_hasData, size};
}

void Copier::Copy(const RtfToken& token)
{
    switch (token.kind) {
    case RtfToken::Open:
        return CopyBrace('{');
    case RtfToken::Close:
        return CopyBrace('}');
    case RtfToken::Word:
        return CopyWord(token);
    case RtfToken::Symbol:
        return CopySymbol(token.bytes[0]);
    case RtfToken::Hex:
        return CopyHex(token.parameter);
    case RtfToken::Text:
        return CopyData(token.bytes);
    case RtfToken::Binary:
        return CopyBinary(token.bytes);
    case RtfToken::End:
        return;
    }
}

void Copier::CopyBrace(char brace)
{
    m_depth += brace == '{' ? 1 : -1;
    m_source += brace;
    m_isAfterWord = false;
}

void Copier::CopySymbol(char symbol)
{
    if (symbol <= ' ' || symbol > 126) return;
    (m_source += '\\') += symbol;
    m_isAfterWord = false;
}

void Copier::CopyWord(const RtfToken& token)
{
    m_source += '\\' + token.bytes.toByteArray();
    if (token.hasParameter) m_source += QByteArray::number(token.parameter);
    m_isAfterWord = true;
    if (token.IsWord("pict")) m_pictureDepth = m_depth;
    const QByteArray name = token.bytes.toByteArray();
    if (IsInPicture() && !m_numbers.contains(name)) m_numbers.insert(name, token.parameter);
}

void Copier::CopyData(QByteArrayView data)
{
    for (const char byte : data) {
        if (static_cast<unsigned char>(byte) > 126)
            CopyHex(static_cast<unsigned char>(byte));
        else if (byte == '\\' || byte == '{' || byte == '}')
            CopySymbol(byte);
        else
            CopyLetter(byte);
    }
    m_hasData = m_hasData || (IsInPicture() && std::ranges::any_of(data, [](char byte) { return byte > ' '; }));
}

void Copier::CopyBinary(QByteArrayView data)
{
    for (const char digit : data.toByteArray().toHex())
        CopyLetter(digit);
    m_hasData = m_hasData || (IsInPicture() && !data.isEmpty());
}

void Copier::CopyHex(int byte)
{
    const char value = static_cast<char>(byte);
    m_source += "\\'" + QByteArray(&value, 1).toHex();
    m_isAfterWord = false;
}

void Copier::CopyLetter(char letter)
{
    if (std::exchange(m_isAfterWord, false)) m_source += ' ';
    m_source += letter;
}

double Copier::Side(const char* goal, const char* plain, const char* scale) const
{
    const double unit = m_numbers.contains("wmetafile") ? MetricInPixel : 1;
    const double goalPixels = m_numbers.value(goal) / TwipsInPixel;
    const double plainPixels = m_numbers.value(plain) / unit;
    const double pixels = goalPixels > 0 ? goalPixels : plainPixels > 0 ? plainPixels : DefaultSide;
    const int percent = m_numbers.value(scale, 100);
    return std::clamp(percent > 0 ? pixels * percent / 100 : pixels, LeastSide, GreatestSide);
}

QImage DrawFrame()
{
    QImage image(192, 144, QImage::Format_RGB32);
    image.fill(paper::MemoPaper);
    QPainter painter(&image);
    painter.setPen(QPen(paper::SoftInk, 3));
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
    format.setProperty(PictureSourceProperty, picture.source);
    return format;
}
