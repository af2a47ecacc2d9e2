#include "platform/profile/profile.h"

#include "platform/desktop/folders.h"
#include "platform/profile/inifile.h"
#include "platform/profile/inistorage.h"
#include "platform/runtime/errortail.h"

#include <QDateTime>
#include <QDir>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {
struct Change
{
    QString Section;
    QString Key;
    QString Value;
    Quotes Quoting;
};

// A file as last read. Used on the user interface's thread only, like all of this folder.
struct Held
{
    inistorage::Identity Identity;
    IniFile File;
    // File system clocks tick slowly: another write to a young file could leave the same identity. While this is false,
    // the bytes are compared.
    bool Settled = false;
    bool Batched = false;
    std::vector<Change> Batch; // not written yet
};

constexpr qint64 SlowestTick = 100'000'000; // nanoseconds

QHash<QString, Held> g_held; // by path

QString PathOf(const QString& file)
{
    return file.contains(u'/') ? file : folders::WindowsDirectory() + u'/' + file;
}

// Empty if no file can hold one of the changes.
std::optional<IniFile> Changed(IniFile file, const std::vector<Change>& changes)
{
    for (const Change& change : changes) {
        std::optional<IniFile> next = file.With(change.Section, change.Key, change.Value, change.Quoting);
        if (!next) return std::nullopt;
        file = std::move(*next);
    }
    return file;
}

void Refresh(Held& held, const QString& path, const inistorage::Identity& identity)
{
    const std::optional<QByteArray> text = inistorage::Read(path);
    held.Settled = false;
    // A file that cannot be read now must not count as empty: a dialog would show defaults, and its OK would write
    // them.
    if (!text) return;
    if (*text != held.File.Text() || !held.Batch.empty()) held.File = *Changed(IniFile(*text), held.Batch);
    held.Identity = identity;
    held.Settled = identity == inistorage::Identity() ||
                   std::abs(QDateTime::currentMSecsSinceEpoch() * 1'000'000 - identity.Modified) > SlowestTick;
}

Held& HeldOf(const QString& path)
{
    Held& held = g_held[path];
    const inistorage::Identity identity = inistorage::IdentityOf(path);
    if (!held.Settled || identity != held.Identity) Refresh(held, path, identity);
    return held;
}

int DateOrder(const QString& dateFormat)
{
    bool quoted = false;
    for (const QChar letter : dateFormat) {
        if (letter == u'\'') quoted = !quoted;
        const qsizetype order = quoted ? -1 : QStringView(u"Mdy").indexOf(letter);
        if (order >= 0) return int(order);
    }
    return 0;
}

// The desktop's setting, if WIN.INI has no such section.
std::optional<QString> SystemValue(const IniFile& held, const QString& section, const QString& key, const QString& file)
{
    const auto is = [](const QString& text, QLatin1StringView name) {
        return text.compare(name, Qt::CaseInsensitive) == 0;
    };
    if (!is(section, "intl"_L1) || !is(file, "WIN.INI"_L1)) return std::nullopt;
    if (held.HasSection(section)) return std::nullopt;
    const QLocale locale = QLocale::system();
    if (is(key, "sDecimal"_L1)) return locale.decimalPoint();
    if (is(key, "iDate"_L1)) return QString::number(DateOrder(locale.dateFormat(QLocale::ShortFormat)));
    return std::nullopt;
}

std::optional<QString> ValueOf(const QString& section, const QString& key, const QString& file)
{
    const IniFile& held = HeldOf(PathOf(file)).File;
    std::optional<QString> value = held.Value(section, key);
    return value ? value : SystemValue(held, section, key, file);
}

int IntegerAtStart(QStringView text)
{
    text = text.trimmed();
    const bool negative = text.startsWith(u'-');
    if (negative || text.startsWith(u'+')) text = text.sliced(1);
    qint64 number = 0;
    for (const QChar digit : text) {
        if (digit < u'0' || digit > u'9' || number > std::numeric_limits<int>::max()) break;
        number = number * 10 + (digit.unicode() - u'0');
    }
    using Limits = std::numeric_limits<int>;
    return int(std::clamp<qint64>(negative ? -number : number, Limits::min(), Limits::max()));
}

bool WriteAll(const QString& path, const std::vector<Change>& changes)
{
    if (changes.empty()) return true;
    // The folder may have been removed meanwhile.
    if (path.startsWith(folders::WindowsDirectory())) QDir().mkpath(folders::WindowsDirectory());
    const bool isWritten = inistorage::Change(path, [&](const QByteArray& before) {
        const std::optional<IniFile> after = Changed(IniFile(before), changes);
        return after ? std::optional(after->Text()) : std::nullopt;
    });
    // Most callers cannot report the failure.
    if (!isWritten)
        LogError({errors::PathFileAccess, u"Could not write settings to "_s + path},
                 " in Profile, WritePrivateProfileString"_L1);
    return isWritten;
}

bool Write(const Change& change, const QString& file)
{
    const QString path = PathOf(file);
    const auto held = g_held.find(path);
    if (held == g_held.end() || !held->Batched) return WriteAll(path, {change});
    std::optional<IniFile> changed = Changed(held->File, {change});
    if (!changed) return false;
    held->Batch.push_back(change);
    held->File = std::move(*changed);
    return true;
}
} // namespace

int GetPrivateProfileIntA(const QString& section, const QString& key, int defaultValue, const QString& file)
{
    const std::optional<QString> value = ValueOf(section, key, file);
    return value ? IntegerAtStart(*value) : defaultValue;
}

QString GetPrivateProfileStringA(const QString& section, const QString& key, const QString& defaultValue, int size,
                                 const QString& file)
{
    const QString value = ValueOf(section, key, file).value_or(defaultValue);
    const QString cut = value.left(std::max(size - 1, 0));
    return cut.size() < value.size() && !cut.isEmpty() && cut.back().isHighSurrogate() ? cut.chopped(1) : cut;
}

bool WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value, const QString& file)
{
    return Write({section, key, value, Quotes::WhereNeeded}, file);
}

bool WritePrivateProfileNumber(const QString& section, const QString& key, const QString& number, const QString& file)
{
    return Write({section, key, number, Quotes::Never}, file);
}

ProfileBatch::ProfileBatch(const QString& file) : m_file(PathOf(file))
{
    HeldOf(m_file).Batched = true;
}

ProfileBatch::~ProfileBatch()
{
    const auto held = g_held.find(m_file);
    WriteAll(m_file, held->Batch);
    g_held.erase(held); // reads take the file from the disk again
}
