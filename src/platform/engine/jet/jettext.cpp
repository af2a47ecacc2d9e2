#include "platform/engine/jet/jettext.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>

namespace {
constexpr QByteArrayView ShortenedMark("\xFF\xFE", 2);

bool IsAscii(QByteArrayView bytes)
{
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) < 128; });
}

QByteArray NameOf(int codePage)
{
    return (codePage < 874 ? "ibm-" : "windows-") + QByteArray::number(codePage);
}

QChar Wide(QByteArrayView bytes, qsizetype at)
{
    return QChar(static_cast<uchar>(bytes[at]), static_cast<uchar>(bytes[at + 1]));
}

// Runs of single bytes and runs of pairs alternate, separated by a zero byte.
std::optional<QString> DecodeShortened(QByteArrayView bytes)
{
    QString text;
    bool pairs = false;
    for (qsizetype at = 0; at < bytes.size();) {
        if (bytes[at] == '\0') {
            pairs = !pairs;
            ++at;
        } else if (!pairs) {
            text += QLatin1Char(bytes[at++]);
        } else {
            if (at + 1 == bytes.size()) return {};
            text += Wide(bytes, at);
            at += 2;
        }
    }
    return text;
}

std::optional<QString> DecodeWide(QByteArrayView bytes)
{
    if (bytes.startsWith(ShortenedMark)) return DecodeShortened(bytes.sliced(ShortenedMark.size()));
    if (bytes.size() % 2 != 0) return {};
    QString text;
    text.reserve(bytes.size() / 2);
    for (qsizetype at = 0; at < bytes.size(); at += 2)
        text += Wide(bytes, at);
    return text;
}

// Null if the code page lacks a character, or is unknown.
QByteArray Encoded(QStringView text, int codePage)
{
    QStringEncoder encoder(NameOf(codePage).constData(), QStringEncoder::Flag::Stateless);
    if (!encoder.isValid()) return {};
    const QByteArray bytes = encoder.encode(text);
    return encoder.hasError() ? QByteArray() : bytes;
}

bool IsRichText(QByteArrayView start)
{
    return start.trimmed().startsWith("{\\rtf");
}

// The rich text control wrote bytes, and the engine decoded them by its code page. This encodes them again. A character
// that the code page lacks comes from a program that wrote for newer readers.
QByteArray BytesOfRichText(const QString& text, int codePage)
{
    QByteArray bytes = Encoded(text, codePage);
    if (!bytes.isNull()) return bytes;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        const QByteArray one =
            unit < 128 ? QByteArray(1, static_cast<char>(unit)) : Encoded(QStringView(&character, 1), codePage);
        bytes += one.isNull() ? "\\u" + QByteArray::number(static_cast<qint16>(unit)) + '?' : one;
    }
    return bytes;
}
} // namespace

std::optional<QString> DecodeJetText(QByteArrayView bytes, const JetEncoding& encoding)
{
    if (encoding.IsJet4) return DecodeWide(bytes);
    if (IsAscii(bytes)) return QString::fromLatin1(bytes);
    QStringDecoder decoder(NameOf(encoding.CodePage).constData(), QStringDecoder::Flag::Stateless);
    if (!decoder.isValid()) return {};
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

std::optional<QByteArray> DecodeJetMemo(QByteArrayView bytes, const JetEncoding& encoding)
{
    if (!encoding.IsJet4 && (IsAscii(bytes) || IsRichText(bytes))) return bytes.toByteArray();
    const auto text = DecodeJetText(bytes, encoding);
    if (!text) return {};
    return encoding.IsJet4 && IsRichText(text->first(std::min<qsizetype>(text->size(), 64)).toLatin1())
               ? BytesOfRichText(*text, encoding.CodePage)
               : text->toUtf8();
}
