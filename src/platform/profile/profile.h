// The INI store: files of [sections] and key=value lines, UTF-8, read and written one key at a time. A name without a
// path means the Windows directory (folders.h). Sections and keys match without regard to case, the first match wins,
// and lines that are no key are kept. Nothing here raises an error: a missing file or key is normal, a file that cannot
// be read counts as it was last read, and a write that fails leaves the file as it was and is logged. Two programs may
// use one file at the same time.
#pragma once

#include <QString>

// The number at the start of the value (decimal, leading blanks skipped, a sign allowed), 0 for a value that is no
// number, the default if the key is absent. Values beyond 32 bits are clamped.
int GetPrivateProfileIntA(const QString& section, const QString& key, int defaultValue, const QString& file);

// The value, or the default if the key is absent: without the blanks around it and one pair of quotes around it, cut to
// size - 1 characters, as a buffer of that size would hold it.
QString GetPrivateProfileStringA(const QString& section, const QString& key, const QString& defaultValue, int size,
                                 const QString& file);

// Creates file, section and key as needed; false if it could not be written, in which case nothing has changed.
bool WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value, const QString& file);
// The same for a number as text, which may have blanks around it: they stand in the file as they are, without quotes.
bool WritePrivateProfileNumber(const QString& section, const QString& key, const QString& number, const QString& file);

// While one of these lives, the writes of this process to the file are held back; its end writes them in one
// replacement of the file. Reads see them at once, and no longer if they could not be written at the end, which only
// the log tells. Batches of one file do not nest.
class ProfileBatch
{
public:
    explicit ProfileBatch(const QString& file);
    ~ProfileBatch();
    ProfileBatch(const ProfileBatch&) = delete;
    ProfileBatch& operator=(const ProfileBatch&) = delete;

private:
    QString m_file;
};
