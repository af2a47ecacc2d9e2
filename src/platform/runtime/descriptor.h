// A file descriptor that closes itself, and byte locks on its file.
#pragma once

#include <QString>

#include <sys/types.h>

#include <utility>

// If a function returns false, errno says why.
class Descriptor
{
public:
    Descriptor() = default;
    Descriptor(const QString& path, int flags,
               mode_t mode = 0); // not open on failure; not inherited by child processes
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }

    bool IsOpen() const { return m_number >= 0; }
    int Number() const { return m_number; }

    // Locks of the open file description: they end with the descriptor and exclude other descriptors, also this
    // process's. type is F_RDLCK, F_WRLCK or F_UNLCK. Never waits.
    bool Lock(short type, off_t begin, off_t count = 1) const;
    bool IsLockedElsewhere(off_t begin, off_t count = 1) const; // any of count bytes

    bool Sync() const; // a file, or a folder's entries; true where the file system has nothing to sync

private:
    int m_number = -1;
};
