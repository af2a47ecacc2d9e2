#include "platform/richtext/rtfpicture.h"

#include "platform/desktop/twips.h"
#include "platform/richtext/rtfoutput.h"

#include <QCryptographicHash>
#include <QHash>

#include <algorithm>

namespace {

constexpr double MetricInPixel = 2540 / 96.0; // hundredths of a millimetre
constexpr int DefaultSide = 32;

// Bytes that are copied unescaped, and so count as data when the copy is read again.
bool IsSign(char byte)
{
    return byte > ' ' && byte <= '~';
}

// Copies a group in canonical form, 7-bit with hexadecimal data, and collects its sizes.
class Copier
{
public:
    explicit Copier(QByteArrayView word) : m_pictureDepth(word == "pict" ? 1 : 0)
    {
        m_source.Raw("{");
        m_source.Word(word);
    }

    RtfPicture CopyFrom(RtfTokenizer& tokenizer);

private:
    void Copy(const RtfToken& token);
    void CopyWord(const RtfToken& token);
    void CopyData(QByteArrayView data);
    bool IsInPicture() const { return m_depth == m_pictureDepth; }
    double Side(const char* goal, const char* plain, const char* scale, double otherwise) const;
    QSizeF Size() const;

    RtfOutput m_source;
    QHash<QByteArray, int> m_numbers; // by word; of the group's first picture
    int m_depth = 1;
    int m_pictureDepth;
    bool m_hasData = false;
};

RtfPicture Copier::CopyFrom(RtfTokenizer& tokenizer)
{
    for (RtfTokenizer ahead = tokenizer;; tokenizer = ahead) {
        const RtfToken token = ahead.Next();
        if (token.kind == RtfToken::End || (token.kind == RtfToken::Close && m_depth == 1)) break;
        Copy(token);
    }
    m_source.Raw(QByteArray(m_depth, '}'));
    return {m_source.Rtf().toByteArray(), m_hasData, Size()};
}

void Copier::Copy(const RtfToken& token)
{
    switch (token.kind) {
    case RtfToken::Open:
        ++m_depth;
        return m_source.Raw("{");
    case RtfToken::Close:
        --m_depth;
        return m_source.Raw("}");
    case RtfToken::Word:
        return CopyWord(token);
    case RtfToken::Symbol:
        if (IsSign(token.bytes[0])) m_source.Raw('\\' + token.bytes.toByteArray());
        return;
    case RtfToken::Hex:
        return m_source.Hex(static_cast<char>(token.parameter));
    case RtfToken::Text:
        return CopyData(token.bytes);
    case RtfToken::Binary:
        return CopyData(token.bytes.toByteArray().toHex());
    case RtfToken::End:
        return;
    }
}

void Copier::CopyWord(const RtfToken& token)
{
    if (token.hasParameter)
        m_source.Word(token.bytes, token.parameter);
    else
        m_source.Word(token.bytes);
    if (token.IsWord("pict")) m_pictureDepth = m_depth;
    const QByteArray name = token.bytes.toByteArray();
    if (IsInPicture() && !m_numbers.contains(name)) m_numbers.insert(name, token.parameter);
}

void Copier::CopyData(QByteArrayView data)
{
    for (const char byte : data) {
        if (static_cast<unsigned char>(byte) > '~')
            m_source.Hex(byte);
        else if (byte == '\\' || byte == '{' || byte == '}')
            m_source.Raw(QByteArray("\\") + byte);
        else
            m_source.Letter(byte);
    }
    m_hasData = m_hasData || (IsInPicture() && std::ranges::any_of(data, IsSign));
}

// A picture without size is shown at the size of its pixels.
QSizeF Copier::Size() const
{
    const auto saysNothing = [this](const char* goal, const char* plain) {
        return m_numbers.value(goal) <= 0 && m_numbers.value(plain) <= 0;
    };
    const bool isOpen = saysNothing("picwgoal", "picw") || saysNothing("pichgoal", "pich");
    const QSize pixels = isOpen && m_hasData ? PixelsOfPictureGroup(m_source.Rtf()) : QSize();
    const QSize otherwise = pixels.isEmpty() ? QSize(DefaultSide, DefaultSide) : pixels;
    return {Side("picwgoal", "picw", "picscalex", otherwise.width()),
            Side("pichgoal", "pich", "picscaley", otherwise.height())};
}

double Copier::Side(const char* goal, const char* plain, const char* scale, double otherwise) const
{
    const double unit = m_numbers.contains("wmetafile") || m_numbers.contains("emfblip") ? MetricInPixel : 1;
    const double goalPixels = double(m_numbers.value(goal)) / TwipsPerPixel;
    const double plainPixels = m_numbers.value(plain) / unit;
    const double pixels = goalPixels > 0 ? goalPixels : plainPixels > 0 ? plainPixels : otherwise;
    const int percent = m_numbers.value(scale, 100);
    return std::clamp<double>(percent > 0 ? pixels * percent / 100 : pixels, LeastPictureSide, GreatestPictureSide);
}

} // namespace

RtfPicture ReadRtfPicture(RtfTokenizer& tokenizer, QByteArrayView word)
{
    return Copier(word).CopyFrom(tokenizer);
}

QTextImageFormat ToImageFormat(const RtfPicture& picture, QTextDocument& document)
{
    const QByteArray digest = QCryptographicHash::hash(picture.source, QCryptographicHash::Sha1).toHex();
    const QString name = u"picture:"_s + QString::fromLatin1(digest);
    ShowPictures(document);
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(picture.size.width());
    format.setHeight(picture.size.height());
    format.setProperty(PictureSourceProperty, picture.source);
    return format;
}

QTextCharFormat WithoutImage(QTextCharFormat format)
{
    constexpr int FirstOfImages = QTextFormat::ImageName, BehindImages = FirstOfImages + 0x100;
    for (const int property : format.properties().keys())
        if (property >= FirstOfImages && property < BehindImages) format.clearProperty(property);
    format.clearProperty(QTextFormat::ObjectType);
    format.clearProperty(PictureSourceProperty);
    return format;
}
