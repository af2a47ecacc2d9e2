#include "rows.h"

#include <QApplication>
#include <QKeyEvent>

namespace {
constexpr Turns ManyMoves{30, 2};
constexpr int TypingCell = 17;

Row MoveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"month move",
            {[&] { ours.MoveMonth(); }, [&] { ours.ShowMonth(), ours.SaveIfChanged(), ours.PaintedAll(); },
             [&] { return ours.PaintedAll(); }},
            {[&] { bare.MoveMonth(false); }, [&] { bare.ShowMonth(), bare.PaintedAll(); },
             [&] { return bare.PaintedAll(); }},
            ManyMoves};
}

Row SavingMoveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"month move, 35 cells changed",
            {[&] { ours.MoveMonth(); }, [&] { ours.ShowMonth(), ours.ChangeAllNotes(), ours.PaintedAll(); },
             [&] { return ours.PaintedAll(); }},
            {[&] { bare.MoveMonth(true); }, [&] { bare.ShowMonth(), bare.PaintedAll(); },
             [&] { return bare.PaintedAll(); }},
            ManyMoves};
}

Row SaveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"save 35 changed cells",
            {[&] { ours.Trigger("mnuSave"); }, [&] { ours.ShowMonth(), ours.ChangeAllNotes(); },
             [&] { return !ours.Box(BoxCount).Modified(); }},
            {[&] { bare.Save(); }, [&] { bare.ShowMonth(); }},
            ManyMoves};
}

// Types a letter, and at the next call deletes it.
void TypeInto(QWidget& box, bool& typed)
{
    const int key = typed ? Qt::Key_Backspace : Qt::Key_X;
    const QString text = typed ? u"\b"_s : u"x"_s;
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
            {[&] { TypeInto(ours.Box(TypingCell), typed); },
             [&] { ours.ShowMonth(), ours.Focus(TypingCell), ours.PaintedOne(); }, [&] { return ours.PaintedOne(); }},
            {[&] { TypeInto(bare.Box(TypingCell), typedBare); },
             [&] { bare.ShowMonth(), bare.Focus(TypingCell), bare.PaintedOne(); }, [&] { return bare.PaintedOne(); }},
            ManyKeys};
}

Row ViewRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {"week view and back",
            {[&] { ours.ShowWeek(), ours.ShowMonth(); }, [&] { ours.ShowMonth(), ours.PaintedAll(); },
             [&] { return ours.PaintedAll(); }},
            {[&] { bare.ShowWeek(), bare.ShowMonth(); }, [&] { PaintNow(), bare.PaintedAll(); },
             [&] { return bare.PaintedAll(); }},
            ManyMoves};
}

Row WeekMoveRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {
        "week move",
        {[&] { ours.MoveWeek(); }, [&] { ours.ShowWeek(), ours.PaintedWeek(); }, [&] { return ours.PaintedWeek(); }},
        {[&] { bare.MoveWeek(); }, [&] { bare.ShowWeek(), bare.PaintedWeek(); }, [&] { return bare.PaintedWeek(); }},
        ManyMoves};
}

Row ResizeRow(PlannerWindow& ours, BarePlanner& bare)
{
    return {
        "resize step",
        {[&] { ours.ResizeStep(); }, [&] { ours.ShowMonth(), ours.PaintedAll(); }, [&] { return ours.PaintedAll(); }},
        {[&] { bare.ResizeStep(); }, [&] { bare.ShowMonth(), bare.PaintedAll(); }, [&] { return bare.PaintedAll(); }},
        ManyMoves};
}
} // namespace

void AddMonthRows(const TakeRow& add, PlannerWindow& ours, BarePlanner& bare)
{
    add(MoveRow(ours, bare));
    add(SavingMoveRow(ours, bare));
    add(SaveRow(ours, bare));
    add(KeystrokeRow(ours, bare));
    add(ViewRow(ours, bare));
    add(WeekMoveRow(ours, bare));
    add(ResizeRow(ours, bare));
}
