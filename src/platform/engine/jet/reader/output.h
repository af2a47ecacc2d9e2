// Writes frames into the pipe.
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
    void AddText(std::string_view text); // and its size
    void AddNull() { AddNumber(jetstream::NullSize, 4); }
    void Send(); // ends the process if the program has closed the pipe

private:
    std::string m_bytes;
};

// Sends the reason and ends the process.
[[noreturn]] void Refuse(jetstream::Reason reason);
