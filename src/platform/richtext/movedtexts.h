// Texts dragged between two notes. If the move is the next step of both, one undo or redo acts on both. Each note lists
// the moves out of it and into it.
#pragma once

#include <QPointer>
#include <QTextDocumentFragment>
#include <QTextEdit>

#include <memory>
#include <vector>

class MovedTexts : public QObject
{
public:
    explicit MovedTexts(QTextEdit& box); // the owner of the list

    // Called on the source note: Dropped() while the text is still selected, EndOfDrag() when the drag is over.
    void Dropped(MovedTexts& target);
    void EndOfDrag(bool isTakenAway);

    // False, with nothing done, if the next step is no move. If the source note has changed since, undoing the drop
    // inserts the text there as a new step, so that it is not lost.
    bool Undo() { return Step(false) || GiveBack(); }
    bool Redo() { return Step(true); }

private:
    struct State
    {
        int steps = 0;      // available undo steps
        int characters = 0; // typing behind the inserted text joins its undo step
        bool operator==(const State&) const = default;
    };
    struct End
    {
        QPointer<MovedTexts> note;
        State before, after; // before and after the move
    };
    struct Move
    {
        End ends[2]; // from and to
        QTextDocumentFragment text;
        int place = 0; // its position in the source
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
    QTextDocumentFragment m_text; // being dragged
    int m_place = 0;
    std::vector<std::shared_ptr<Move>> m_moves;
};
