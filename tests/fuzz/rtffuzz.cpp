// Any bytes as rich text: nothing crashes, hangs or grows out of bounds, and a note that was read is written and read
// again unchanged. libFuzzer's entry point.
#include "fuzz/fuzztarget.h"
#include "platform/richtext/notetext.h"
#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"

#include <QGuiApplication>
#include <QTextCursor>
#include <QTextDocument>

namespace {

// Output grows at most in proportion to the input. The worst inputs are characters beyond 16 bits, a byte each, and a
// paragraph that repeats all of its tabs.
constexpr qsizetype SomeBytes = 4096;
constexpr qsizetype LettersForByte = 2;
constexpr qsizetype BytesForByte = 256;

void ReadsWhatItWrites(QByteArrayView rtf)
{
    QTextDocument first, second;
    ReadRtf(rtf, first);
    Require(first.characterCount() <= rtf.size() * LettersForByte + SomeBytes, "the document is bounded");
    Require(ShownText(rtf).replace(QChar::Nbsp, u' ') == first.toPlainText(), "the search reads the same text");
    const QByteArray written = WriteRtf(first);
    Require(written.size() <= rtf.size() * BytesForByte + SomeBytes, "what is written is bounded");
    ReadRtf(written, second);
    Require(second.toRawText() == first.toRawText(), "what was written is read as the same text");
    Require(WriteRtf(second) == written, "what was read again is written as the same bytes");
}

void IsTakenBackInOneStep(QByteArrayView rtf)
{
    QTextDocument document;
    document.setPlainText(u"in"_s); // not undoable
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
