// The part of the main window that bars and calendar share.
#pragma once

#include <cstdint>

class ClientArea
{
public:
    // In logical pixels of the area itself, from 0, 0.
    virtual void GetClientRect(std::int32_t& left, std::int32_t& top, std::int32_t& right,
                               std::int32_t& bottom) const = 0;

protected:
    ~ClientArea() = default;
};
