// A file's descriptor that closes itself, and locks on single bytes of the file.
#pragma once

#include <QString>

#include <sys/types.h>

#include <utility>

// Where a routine says false, errno tells why.
class Descriptor
{
public:
    Descriptor() = default;
    Descriptor(const QString& path, int flags, mode_t mode = 0); // not open if that fails; no child gets it
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }

    // Locks of the open file: they end with the descriptor and exclude any other one, this process's own included.
    // F_RDLCK, F_WRLCK or F_UNLCK; never waits.
    bool Lock(short type, off_t begin, off_t count = 1) const;
    bool IsLockedElsewhere(off_t begin, off_t count = 1) const; // any of so many

    bool Sync() const; // a file, or a folder with the names in it, as far as its drive has that to sync

private:
    int m_number = -1;
};
