// maketunes FOLDER NAME.wav.score NAME.mid.score...: writes FOLDER/NAME.wav and FOLDER/NAME.mid, the same bytes at
// every run.
#include "score.h"
#include "writers.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {
int Fail(const QString& reason)
{
    std::fprintf(stderr, "maketunes: %s\n", qPrintable(reason));
    return 1;
}

int Make(const QString& path, const QDir& folder)
{
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly)) return Fail(path + QStringLiteral(": ") + source.errorString());
    QString error;
    const Score score = ReadScore(QString::fromUtf8(source.readAll()), &error);
    if (!error.isEmpty()) return Fail(path + QStringLiteral(": ") + error);

    QSaveFile file(folder.filePath(QFileInfo(path).completeBaseName()));
    const bool wave = file.fileName().endsWith(QStringLiteral(".wav"));
    const QByteArray content = wave ? WaveOf(score) : MidiOf(score);
    if (content.isEmpty()) return Fail(path + QStringLiteral(": an instrument that only MIDI plays"));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0 || !file.commit())
        return Fail(file.fileName() + QStringLiteral(": ") + file.errorString());
    return 0;
}
} // namespace

int main(int argc, char* argv[])
{
    if (argc < 3) return Fail(QStringLiteral("usage: maketunes FOLDER NAME.wav.score NAME.mid.score..."));
    const QDir folder(QFile::decodeName(argv[1]));
    if (!folder.mkpath(QStringLiteral("."))) return Fail(folder.path() + QStringLiteral(": cannot be made"));
    for (int i = 2; i < argc; ++i)
        if (Make(QFile::decodeName(argv[i]), folder) != 0) return 1;
    return 0;
}
