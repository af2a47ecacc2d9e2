#include "platform/richtext/rtfreader.h"

#include "platform/richtext/rtfbuilder.h"

#include <QStringDecoder>
#include <QTextCursor>
#include <QTextDocument>

namespace {

void Read(QByteArrayView rtf, QTextCursor& cursor, RtfBuilder::Purpose purpose)
{
    if (!LooksLikeRtf(rtf)) return cursor.insertText(PlainNote(rtf));
    RtfTables tables;
    RtfBuilder builder(cursor, purpose, tables);
    RtfMachine(rtf, tables, builder).Run();
}

} // namespace

void ReadRtf(QByteArrayView rtf, QTextDocument& document)
{
    const bool isUndoEnabled = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    Read(rtf, cursor, RtfBuilder::WholeDocument);
    cursor.endEditBlock();
    document.setUndoRedoEnabled(isUndoEnabled);
    document.setModified(false);
}

void InsertRtf(QByteArrayView rtf, QTextCursor& cursor)
{
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    Read(rtf, cursor, RtfBuilder::Insertion);
    cursor.endEditBlock();
}

bool LooksLikeRtf(QByteArrayView text)
{
    const auto isFiller = [](char byte) { return byte == '\0' || byte == ' ' || byte == '\r' || byte == '\n'; };
    while (!text.isEmpty() && isFiller(text.front()))
        text = text.sliced(1);
    return text.startsWith("{\\rtf") || text.startsWith("{\\urtf");
}

QString PlainNote(QByteArrayView bytes)
{
    QByteArray kept = bytes.toByteArray();
    kept.removeIf([](char byte) { return byte == 0; });
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(kept);
    if (decoder.hasError()) text = DecodeRtfBytes(kept, AnsiCodePage);
    text.replace(u"\r\n"_s, u"\n"_s);
    return text;
}
