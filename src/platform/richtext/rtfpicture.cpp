#include "platform/richtext/rtfpicture.h"

#include "platform/desktop/twips.h"
#include "platform/richtext/pictureimage.h"
#include "platform/richtext/shownpictures.h"

#include <QCryptographicHash>
#include <QHash>

#include <algorithm>
#include <utility>

namespace {

constexpr double MetricInPixel = 2540 / 96.0; // hundredths of a millimetre
constexpr int DefaultSide = 32;

// Of what stands in a group these alone are copied as they are, so they alone are its data when it is read again.
bool IsSign(char byte)
{
    return byte > ' ' && byte <= '~';
}

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
    double Side(const char* goal, const char* plain, const char* scale, double otherwise) const;
    QSizeF Size() const;

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
    const QSizeF size = Size();
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
    if (!IsSign(symbol)) return;
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
    m_hasData = m_hasData || (IsInPicture() && std::ranges::any_of(data, IsSign));
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

// A picture that says nothing of its size shows its pixels.
QSizeF Copier::Size() const
{
    const auto saysNothing = [this](const char* goal, const char* plain) {
        return m_numbers.value(goal) <= 0 && m_numbers.value(plain) <= 0;
    };
    const bool isOpen = saysNothing("picwgoal", "picw") || saysNothing("pichgoal", "pich");
    const QSize pixels = isOpen && m_hasData ? PixelsOfPictureGroup(m_source) : QSize();
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
