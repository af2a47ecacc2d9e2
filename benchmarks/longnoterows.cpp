#include "rows.h"

#include <QApplication>
#include <QKeyEvent>

namespace {
constexpr int Cell = 17;
constexpr int Bytes = 300'000; // of rich text, in any shape
constexpr Turns SomeTurns{10};
constexpr Turns SomeKeys{10};

struct Shape
{
    const char* name;
    int monthsBack;   // how far back its month is
    int length;       // letters in a piece
    int bytesBetween; // rich text between two pieces
    bool isLines;     // each piece is a paragraph; otherwise a run of its own format
};

constexpr Shape Shapes[] = {
    {"one word", 1, Bytes, 0, false}, {"8,700 runs", 2, 30, 4, false}, {"lines", 3, 60, 6, true}};

// Hexadecimal digits, as in a dump.
Note LongNote(const Shape& shape)
{
    const Note formats = MakeNote(0);
    const int pieces = Bytes / (shape.length + shape.bytesBetween);
    Note note;
    for (int piece = 0; piece < pieces; ++piece) {
        QString text;
        for (int i = 0; i < shape.length; ++i)
            text += QChar(u"0123456789abcdef"[(i * 7 + i / 3) % 16]);
        note.push_back({text, formats[shape.isLines ? 0 : std::size_t(piece % 2)].format, shape.isLines});
    }
    return note;
}

void Press(QWidget& box, bool& typed)
{
    const int key = typed ? Qt::Key_Backspace : Qt::Key_X;
    QKeyEvent press(QEvent::KeyPress, key, {}, typed ? u"\b"_s : u"x"_s);
    typed = !typed;
    QApplication::sendEvent(&box, &press);
    PaintNow();
}

// Turns between the shown month and the month of a long note.
class LongMonth
{
public:
    LongMonth(PlannerWindow& ours, const Shape& shape) : m_ours(ours), m_shape(shape) {}

    void GoNear() { Go("mnuPrevMonth", m_shape.monthsBack - 1); }
    void Enter() { Go("mnuPrevMonth", 1); }
    void Leave() { Go("mnuNextMonth", m_shape.monthsBack); }
    RichTextBox& Box() { return m_ours.Box(Cell); }
    bool IsThere() { return Box().document()->characterCount() > Bytes / 2; }
    void Type() { Press(Box(), m_typed); }

    void Prepare()
    {
        m_ours.ShowThisMonth();
        GoNear();
        if (std::exchange(m_isWritten, true)) return;
        Enter();
        Box().SetTextRTF(RtfOf(LongNote(m_shape)));
        Box().SetModified(true);
        m_ours.Trigger("mnuSave");
        Go("mnuNextMonth", 1);
    }

    bool Finish()
    {
        const bool isThere = IsThere() && m_ours.PaintedOne();
        Leave();
        return isThere;
    }

    void Focus()
    {
        Prepare();
        Enter();
        m_ours.Focus(Cell);
        m_ours.PaintedOne();
    }

private:
    void Go(const char* entry, int months)
    {
        for (int i = 0; i < months; ++i)
            m_ours.Trigger(entry);
        PaintNow();
    }

    PlannerWindow& m_ours;
    const Shape& m_shape;
    bool m_isWritten = false;
    bool m_typed = false;
};

// A box that may break lines anywhere: no text edit lays out such a word faster.
class BareCell
{
public:
    explicit BareCell(const Shape& shape) : m_note(LongNote(shape))
    {
        Box().setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
        Box().setWordWrapMode(QTextOption::WrapAnywhere);
        m_paintings.Watch(Box());
    }

    QTextEdit& Box() { return *m_window.Boxes().front(); }
    void Empty() { m_window.show(), Box().clear(), PaintNow(), m_paintings.Take(); }
    void Fill() { Build({m_note}, *Box().document()), PaintNow(); }
    void Type() { Press(Box(), m_typed); }
    void Focus()
    {
        if (Box().document()->isEmpty()) Empty(), Fill();
        Box().moveCursor(QTextCursor::Start);
        Box().setFocus();
        PaintNow();
        m_paintings.Take();
    }
    bool IsPainted() { return m_paintings.Take() >= 1; }

private:
    Note m_note;
    BareWindow m_window{QPoint(0, WindowSize.height() + 20), 1};
    PaintCount m_paintings;
    bool m_typed = false;
};
} // namespace

void AddLongNoteRows(const TakeRow& add, PlannerWindow& ours)
{
    for (const Shape& shape : Shapes) {
        auto* const month = new LongMonth(ours, shape); // kept for the rest of the run
        auto* const bare = new BareCell(shape);
        add({std::string("turn to 300 kB, ") + shape.name,
             {[=] { month->Enter(); }, [=] { month->Prepare(); }, [=] { return month->Finish(); }},
             {[=] { bare->Fill(); }, [=] { bare->Empty(); }, [=] { return bare->IsPainted(); }},
             SomeTurns});
    }
    for (const Shape& shape : Shapes) {
        auto* const month = new LongMonth(ours, shape); // kept for the rest of the run
        auto* const bare = new BareCell(shape);
        add({std::string("key in 300 kB, ") + shape.name,
             {[=] { month->Type(); }, [=] { month->Focus(); }, [=] { return month->Finish(); }},
             {[=] { bare->Type(); }, [=] { bare->Focus(); }, [=] { return bare->IsPainted(); }},
             SomeKeys});
    }
}
