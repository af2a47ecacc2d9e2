// A value that stands for what its copies share: copies are the same object, and a default-made one is no object.
#pragma once

#include "platform/engine/enginerefusals.h"

#include <memory>

// The State has a `store`, null when it is closed.
template <typename State>
class Handle
{
public:
    Handle() = default; // no object

    bool IsNothing() const { return !m_state; }

protected:
    explicit Handle(std::shared_ptr<State> state) : m_state(std::move(state)) {}

    State& Live() const // 91 for no object, 3420 for a closed one
    {
        if (!m_state) throw engineerrors::ErrorOf(engineerrors::NoObject);
        if (!m_state->store) throw engineerrors::ErrorOf(engineerrors::ObjectClosed);
        return *m_state;
    }

    std::shared_ptr<State> m_state;
};
