// The texts that were dragged from one note to another: what the move did to both is undone at once, and redone at
// once, while it is the next step of both. Each note has its own list, of the moves that went out of it and into it.
#pragma once

#include <QPointer>
#include <QTextEdit>

#include <memory>
#include <vector>

class MovedTexts : public QObject
{
public:
    explicit MovedTexts(QTextEdit& box); // whose list it is, to be made and to go with it

    // To the list of the note that a text is dragged out of: where it has been dropped, and that the drag is over, with
    // the text taken away there, or left.
    void Dropped(MovedTexts& target) { m_target = &target; }
    void EndOfDrag(bool isTakenAway);

    bool Undo() { return Step(false); } // false where the next step is no move; nothing is done then
    bool Redo() { return Step(true); }

private:
    struct State
    {
        int steps = 0;      // that can be undone
        int characters = 0; // what is typed behind an inserted text becomes part of its step
        bool operator==(const State&) const = default;
    };
    struct End
    {
        QPointer<MovedTexts> note;
        State before, after; // the move
    };
    struct Move
    {
        End ends[2];
        bool isUndone = false;
    };

    bool Step(bool isUndone);
    bool CanStep(const Move& move) const;
    void StepHere(bool isUndone, bool withCaret);
    State Now() const { return {m_box.document()->availableUndoSteps(), m_box.document()->characterCount()}; }
    void Forget();

    QTextEdit& m_box;
    QPointer<MovedTexts> m_target;
    std::vector<std::shared_ptr<Move>> m_moves;
};
