#include "score.h"

#include "instruments.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
// -1 for what is no key of MIDI.
int KeyOf(const QString& name)
{
    static const QRegularExpression form(u"^([A-G])([#b]?)(\\d)$"_s);
    const auto match = form.match(name);
    if (!match.hasMatch()) return -1;
    constexpr int steps[] = {9, 11, 0, 2, 4, 5, 7}; // from A
    const int sign = match.capturedView(2) == u"#" ? 1 : match.capturedView(2) == u"b" ? -1 : 0;
    return 12 * (match.capturedView(3).toInt() + 1) + steps[name[0].unicode() - u'A'] + sign;
}

// 0 for what is no length.
double LengthOf(const QString& text)
{
    const QStringList parts = text.split(u'/');
    const double under = parts.size() == 2 ? parts[1].toDouble() : 1;
    return parts.size() > 2 || under <= 0 ? 0 : parts[0].toDouble() / under;
}

bool AddNote(Voice& voice, const QString& word)
{
    const QStringList parts = word.split(u':');
    const double length = parts.size() == 2 ? LengthOf(parts[1]) : 0;
    if (length <= 0) return false;
    for (const QString& name : parts[0].split(u'+')) {
        if (name == u"-") continue;
        const int key = KeyOf(name);
        if (key < 0) return false;
        voice.Notes.append({voice.End, length, key});
    }
    voice.End += length;
    return true;
}

bool AddNotes(Score& score, const QStringList& words)
{
    if (score.Voices.isEmpty()) return false;
    return std::ranges::all_of(words,
                               [&](const QString& word) { return word == u"|" || AddNote(score.Voices.last(), word); });
}

bool AddVoice(Score& score, const QStringList& words)
{
    if (words.size() != 3) return false;
    const Instrument* const instrument = FindInstrument(words[1]);
    const int loudness = words[2].toInt();
    if (!instrument || loudness < 1 || loudness > 127) return false;
    score.Voices.append({instrument, loudness, {}});
    return true;
}

bool SetNumber(double& number, const QStringList& words)
{
    number = words.size() == 2 ? words[1].toDouble() : 0;
    return number > 0;
}

bool ReadLine(Score& score, const QStringList& words)
{
    if (words[0] == u"tempo") return SetNumber(score.Tempo, words);
    if (words[0] == u"ending") return SetNumber(score.Ending, words);
    if (words[0] == u"voice") return AddVoice(score, words);
    return AddNotes(score, words);
}
} // namespace

double Score::End() const
{
    double end = 0;
    for (const Voice& voice : Voices)
        end = std::max(end, voice.End);
    return end;
}

Score ReadScore(const QString& text, QString* error)
{
    Score score;
    int number = 0;
    for (const QString& line : text.split(u'\n')) {
        ++number;
        const QStringList words = line.simplified().split(u' ', Qt::SkipEmptyParts);
        if (words.isEmpty() || words[0].startsWith(u'#')) continue;
        if (!ReadLine(score, words)) *error = u"line %1: %2"_s.arg(number).arg(line);
    }
    if (score.End() <= 0) *error = u"no note"_s;
    return score;
}
