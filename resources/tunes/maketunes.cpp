// maketunes FOLDER NAME.wav.score NAME.mid.score...: writes FOLDER/NAME.wav and FOLDER/NAME.mid, the same bytes at
// every run.
#include "score.h"
#include "writers.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
int Fail(const QString& reason)
{
    std::fprintf(stderr, "maketunes: %s\n", qPrintable(reason));
    return 1;
}

int Make(const QString& path, const QDir& folder)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly)) return Fail(path + u": "_s + source.errorString());
    QString error;
    const Score score = ReadScore(QString::fromUtf8(source.readAll()), &error);
    if (!error.isEmpty()) return Fail(path + u": "_s + error);

    QSaveFile file(folder.filePath(QFileInfo(path).completeBaseName()));
    const bool wave = file.fileName().endsWith(u".wav"_s);
    const QByteArray content = wave ? WaveOf(score) : MidiOf(score);
    if (content.isEmpty()) return Fail(path + u": an instrument that only MIDI plays"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0 || !file.commit())
        return Fail(file.fileName() + u": "_s + file.errorString());
    return 0;
}
} // namespace

int main(int argc, char* argv[])
{
    if (argc < 3) return Fail(u"usage: maketunes FOLDER NAME.wav.score NAME.mid.score..."_s);
    const QDir folder(QFile::decodeName(argv[1]));
    if (!folder.mkpath(u"."_s)) return Fail(folder.path() + u": cannot be made"_s);
    for (int i = 2; i < argc; ++i)
        if (Make(QFile::decodeName(argv[i]), folder) != 0) return 1;
    return 0;
}
