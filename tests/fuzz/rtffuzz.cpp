// Any bytes at all as rich text: nothing may crash, hang or grow out of bounds, and what was read once is written and
// read again unchanged. The entry is the one that libFuzzer calls.
#include "fuzz/fuzztarget.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// What is read and written grows with the input and no faster. The dearest input there is: signs beyond 16 bits, a byte
// each, and a paragraph with all of its tabs told again and again.
constexpr qsizetype SomeBytes = 4096;
constexpr qsizetype LettersForByte = 2;
constexpr qsizetype BytesForByte = 256;

void ReadsWhatItWrites(QByteArrayView rtf)
{
    QTextDocument first, second;
    ReadRtf(rtf, first);
    Require(first.characterCount() <= rtf.size() * LettersForByte + SomeBytes, "the document is bounded");
    const QByteArray written = WriteRtf(first);
    Require(written.size() <= rtf.size() * BytesForByte + SomeBytes, "what is written is bounded");
    ReadRtf(written, second);
    Require(second.toRawText() == first.toRawText(), "what was written is read as the same text");
    Require(WriteRtf(second) == written, "what was read again is written as the same bytes");
}

void IsTakenBackInOneStep(QByteArrayView rtf)
{
    QTextDocument document;
    document.setPlainText(u"in"_s); // which no undo takes back
    QTextCursor cursor(&document);
    cursor.setPosition(1);
    InsertRtf(rtf, cursor);
    document.undo();
    Require(document.toRawText() == u"in"_s, "an insertion is one step of undo");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments)
{
    static const QGuiApplication application(*count, *arguments);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    ReadsWhatItWrites(bytes);
    ReadsWhatItWrites("{\\rtf1" + bytes.toByteArray());
    IsTakenBackInOneStep(bytes);
    return 0;
}
