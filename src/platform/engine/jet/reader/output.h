// Frames on their way into the pipe.
#pragma once

#include "platform/engine/jet/jetstream.h"

#include <cstddef>
#include <string>
#include <string_view>

class Frame
{
public:
    explicit Frame(jetstream::Kind kind);

    void AddNumber(std::uint32_t number, int bytes);
    void AddText(std::string_view text); // with its size
    void AddNull() { AddNumber(jetstream::NullSize, 4); }
    void Send(); // ends the process if nobody reads

private:
    std::string m_bytes;
};

// Says why there is no planner, and ends the process.
[[noreturn]] void Refuse(jetstream::Reason reason);
