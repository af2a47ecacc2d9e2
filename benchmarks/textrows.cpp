#include "platform/richtext/rtfreader.h"
#include "platform/richtext/rtfwriter.h"
#include "rows.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryFile>
#include <QTextBlock>

namespace {
constexpr double FiveMegabytes = 5e6;
constexpr Turns FewTurns{7};

// The same text as many notes and as one document; built once for both rows.
struct Texts
{
    Texts()
    {
        for (int number = 0; Bytes < FiveMegabytes; ++number) {
            Notes.push_back(MakeNote(number));
            Rtfs.push_back(RtfOf(Notes.back()));
            Bytes += double(Rtfs.back().size());
        }
        QTextDocument document;
        Build(Notes, document);
        Whole = WriteRtf(document);
    }

    std::vector<Note> Notes;
    std::vector<QByteArray> Rtfs;
    QByteArray Whole;
    double Bytes = 0;
};

const Texts& AllTexts()
{
    static const Texts texts;
    return texts;
}

void ReadNotes()
{
    QTextDocument document;
    for (const QByteArray& rtf : AllTexts().Rtfs)
        ReadRtf(rtf, document);
}

void BuildNotes()
{
    QTextDocument document;
    for (const Note& note : AllTexts().Notes)
        Build({note}, document);
}

void ReadWhole()
{
    QTextDocument document;
    ReadRtf(AllTexts().Whole, document);
}

void BuildWhole()
{
    QTextDocument document;
    Build(AllTexts().Notes, document);
}

// The same bytes for both sides, read from disk.
const QString& WholeFile()
{
    static QTemporaryFile file;
    static const QString name = [] {
        if (!file.open() || file.write(AllTexts().Whole) < 0 || !file.flush()) qFatal("no room for a temporary file");
        return file.fileName();
    }();
    return name;
}

void ReadFromFile()
{
    QFile file(WholeFile());
    if (!file.open(QIODevice::ReadOnly)) return;
    QTextDocument document;
    ReadRtf(file.readAll(), document);
}

bool g_otherReaderRan = false;

void ReadByOtherReader()
{
    QProcess reader;
    reader.setStandardOutputFile(QProcess::nullDevice());
    reader.start(u"unrtf"_s, {u"--text"_s, WholeFile()});
    g_otherReaderRan = reader.waitForFinished(-1) && reader.exitCode() == 0;
}

// A few dozen of a day's documents, in turns, stand for all.
const std::vector<std::unique_ptr<QTextDocument>>& SomeDocuments()
{
    constexpr int Some = 64;
    static const auto documents = [] {
        std::vector<std::unique_ptr<QTextDocument>> made;
        for (int number = 0; number < Some; ++number) {
            made.push_back(std::make_unique<QTextDocument>());
            Build({MakeNote(number)}, *made.back());
        }
        return made;
    }();
    return documents;
}

const QTextDocument& WholeDocument()
{
    static const auto document = [] {
        auto made = std::make_unique<QTextDocument>();
        Build(AllTexts().Notes, *made);
        return made;
    }();
    return *document;
}

// The floor of writing: visits every fragment, reads its format and copies its text, without RTF.
QByteArray CopyOf(const QTextDocument& document)
{
    QByteArray copy;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            benchmark::DoNotOptimize(at.fragment().charFormatIndex());
            copy += at.fragment().text().toLatin1();
        }
        copy += '\n';
    }
    return copy;
}

template <typename Write>
void WriteNotes(Write write)
{
    const auto& documents = SomeDocuments();
    for (std::size_t i = 0; i < AllTexts().Notes.size(); ++i)
        benchmark::DoNotOptimize(write(*documents[i % documents.size()]));
}

template <typename Write>
void WriteWhole(Write write)
{
    benchmark::DoNotOptimize(write(WholeDocument()));
}

QByteArray Rtf(const QTextDocument& document)
{
    return WriteRtf(document);
}
} // namespace

void AddTextRows(const TakeRow& add)
{
    const double bytes = AllTexts().Bytes;
    const double wholeBytes = double(AllTexts().Whole.size());
    const auto warm = [] { WholeDocument(), SomeDocuments(); };
    add({"read RTF, notes of 300 characters", {ReadNotes}, {BuildNotes}, FewTurns, bytes});
    add({"read RTF, one large document", {ReadWhole}, {BuildWhole}, FewTurns, wholeBytes});
    add({"read RTF, beside unrtf --text",
         {ReadFromFile, [] { WholeFile(); }},
         {ReadByOtherReader, [] { WholeFile(); }, [] { return g_otherReaderRan; }},
         FewTurns,
         wholeBytes});
    add({"write RTF, notes of 300 characters",
         {[] { WriteNotes(Rtf); }, warm},
         {[] { WriteNotes(CopyOf); }, warm},
         FewTurns,
         bytes});
    add({"write RTF, one large document",
         {[] { WriteWhole(Rtf); }, warm},
         {[] { WriteWhole(CopyOf); }, warm},
         FewTurns,
         wholeBytes});
}
