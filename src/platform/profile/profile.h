// The INI store: files of [sections] and key=value lines, UTF-8, accessed one key at a time. A name without a path
// means the Windows directory (folders.h). Sections and keys match in any letter case, and the first match wins. Other
// lines are kept. Nothing raises an error: a missing file or key is normal, an unreadable file counts as last read, and
// a failed write leaves the file unchanged and is logged. Several programs may use a file at the same time.
#pragma once

#include <QString>

// The number at the start of the value: decimal, leading blanks and a sign allowed, clamped to 32 bits. 0 if the value
// is not a number, the default if the key is absent.
int GetPrivateProfileIntA(const QString& section, const QString& key, int defaultValue, const QString& file);

// The value, or the default if the key is absent. Surrounding blanks and one pair of quotes are removed; it is cut to
// size - 1 characters.
QString GetPrivateProfileStringA(const QString& section, const QString& key, const QString& defaultValue, int size,
                                 const QString& file);

// Creates file, section and key as needed. False: it could not be written, and nothing has changed.
bool WritePrivateProfileStringA(const QString& section, const QString& key, const QString& value, const QString& file);
// Writes a number as text. Surrounding blanks are stored as they are, without quotes.
bool WritePrivateProfileNumber(const QString& section, const QString& key, const QString& number, const QString& file);

// While it exists, writes of this process to the file are held back; its destructor writes them in one replacement.
// Reads see them at once, but lose them if that write fails, which is only logged. Batches of one file do not nest.
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
