// The texts that were dragged from one note to another: what the move did to both is undone at once, and redone at
// once, while it is the next step of both. Each note has its own list, of the moves that went out of it and into it.
#pragma once

#include <QPointer>
#include <QTextDocumentFragment>
#include <QTextEdit>

#include <memory>
#include <vector>

class MovedTexts : public QObject
{
public:
    explicit MovedTexts(QTextEdit& box); // whose list it is, to be made and to go with it

    // To the list of the note that a text is dragged out of: where it has been dropped, while it is still selected, and
    // that the drag is over, with the text taken away there, or left.
    void Dropped(MovedTexts& target);
    void EndOfDrag(bool isTakenAway);

    // False where the next step is no move; nothing is done then. Where the note that the text came from has gone on,
    // an undo of the drop gives the text back there as a new step, or it would be in neither.
    bool Undo() { return Step(false) || GiveBack(); }
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
        End ends[2]; // from and to
        QTextDocumentFragment text;
        int place = 0; // where it stood
        bool isUndone = false;
    };

    bool Step(bool isUndone);
    bool GiveBack();
    bool CanStep(const Move& move) const;
    void StepHere(bool isUndone, bool withCaret);
    State Now() const { return {m_box.document()->availableUndoSteps(), m_box.document()->characterCount()}; }
    void Forget();

    QTextEdit& m_box;
    QPointer<MovedTexts> m_target;
    QTextDocumentFragment m_text; // that is on its way
    int m_place = 0;
    std::vector<std::shared_ptr<Move>> m_moves;
};
