// How far the engine's long work is, for a window that shows it and may end it. Ended work fails like work on a full
// disk: nothing is changed.
#pragma once

#include <QtGlobal>

#include <functional>

namespace longwork {
// Called often with what is done, from 0 to 1. If it returns false, the work ends. It must not use the engine.
using Watch = std::function<bool(double done)>;
void SetWatch(Watch watch); // null removes it

// During its life, Reached counts from one share of the whole to another.
class Part
{
public:
    Part(double from, double to);
    ~Part();
    Q_DISABLE_COPY_MOVE(Part)

private:
    const double m_from, m_to; // of the part around this one
};

// These tell the watch, so windows may paint and take clicks inside.
void Reached(qint64 done, qint64 all); // raises Cancelled
void Goes();                           // at a place that does not know how far it is; raises Cancelled
bool IsEnded();                        // the same for callbacks, which must not raise
} // namespace longwork
