#include "rows.h"

#include <QApplication>
#include <QKeyEvent>

namespace {
constexpr Turns ManyMoves{30, 2};
constexpr int TypingCell = 17;

Row MoveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"month move",
            {[&] { ours.MoveMonth(); }, [&] { ours.SaveIfChanged(), ours.PaintedAll(); },
             [&] { return ours.PaintedAll(); }},
            {[&] { bare.MoveMonth(false); }, [&] { PaintNow(), bare.PaintedAll(); }, [&] { return bare.PaintedAll(); }},
            ManyMoves};
}

Row SavingMoveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"month move, 35 cells changed",
            {[&] { ours.MoveMonth(); }, [&] { ours.ChangeAllNotes(), ours.PaintedAll(); },
             [&] { return ours.PaintedAll(); }},
            {[&] { bare.MoveMonth(true); }, [&] { PaintNow(), bare.PaintedAll(); }, [&] { return bare.PaintedAll(); }},
            ManyMoves};
}

Row SaveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"save 35 changed cells",
            {[&] { ours.Trigger("mnuSave"); }, [&] { ours.ChangeAllNotes(); },
             [&] { return !ours.Box(BoxCount).Modified(); }},
            {[&] { bare.Save(); }, [] { PaintNow(); }},
            ManyMoves};
}

// A letter, and the next time the key that takes it back.
void TypeInto(QWidget& box, bool& typed)
{
    const int key = typed ? Qt::Key_Backspace : Qt::Key_X;
    const QString text = typed ? QStringLiteral("\b") : QStringLiteral("x");
    typed = !typed;
    QKeyEvent press(QEvent::KeyPress, key, {}, text);
    QApplication::sendEvent(&box, &press);
    PaintNow();
}

Row KeystrokeRow(PlannerWindow& ours, BarePlanner& bare)
{
    constexpr Turns ManyKeys{30, 20};
    static bool typed = false, typedBare = false;
    return {"keystroke",
            {[&] { TypeInto(ours.Box(TypingCell), typed); }, [&] { ours.Focus(TypingCell), ours.PaintedOne(); },
             [&] { return ours.PaintedOne(); }},
            {[&] { TypeInto(bare.Box(TypingCell), typedBare); }, [&] { bare.Focus(TypingCell), bare.PaintedOne(); },
             [&] { return bare.PaintedOne(); }},
            ManyKeys};
}
} // namespace

void AddMonthRows(const Add& add, PlannerWindow& ours, BarePlanner& bare)
{
    add(MoveRow(ours, bare));
    add(SavingMoveRow(ours, bare));
    add(SaveRow(ours, bare));
    add(KeystrokeRow(ours, bare));
}
