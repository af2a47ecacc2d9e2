#include "platform/engine/longwork.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <utility>

namespace {
longwork::Watch g_watch;
double g_from = 0, g_to = 1; // the share of the present part
double g_reached = 0;
} // namespace

namespace longwork {
void SetWatch(Watch watch)
{
    g_watch = std::move(watch);
    g_reached = 0;
}

Part::Part(double from, double to) : m_from(g_from), m_to(g_to)
{
    const double share = m_to - m_from;
    g_from = m_from + from * share;
    g_to = m_from + to * share;
}

Part::~Part()
{
    g_from = m_from;
    g_to = m_to;
}

void Reached(qint64 done, qint64 all)
{
    const double share = done < all ? static_cast<double>(done) / static_cast<double>(all) : 1;
    g_reached = g_from + (g_to - g_from) * share;
    Goes();
}

void Goes()
{
    if (IsEnded()) throw RunTimeError{engineerrors::Cancelled, u"The work was cancelled."_s};
}

bool IsEnded()
{
    return g_watch && !g_watch(g_reached);
}
} // namespace longwork
