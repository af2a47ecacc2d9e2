#include "platform/richtext/movedtexts.h"

#include <algorithm>
#include <utility>

MovedTexts::MovedTexts(QTextEdit& box) : m_box(box)
{
    connect(box.document(), &QTextDocument::undoCommandAdded, this, &MovedTexts::Forget);
}

void MovedTexts::Dropped(MovedTexts& target)
{
    m_target = &target;
    m_text = m_box.textCursor().selection();
    m_place = m_box.textCursor().selectionStart();
}

void MovedTexts::EndOfDrag(bool isTakenAway)
{
    const QPointer<MovedTexts> target = std::exchange(m_target, nullptr);
    if (!target || !isTakenAway) return;
    const auto move = std::make_shared<Move>(
        Move{.ends = {End{this, {}, Now()}, End{target, {}, target->Now()}}, .text = m_text, .place = m_place});
    m_moves.push_back(move);
    target->m_moves.push_back(move);
}

// Text typed behind the moved text goes with it in the source note, as without a move, but not in the other note.
bool MovedTexts::CanStep(const Move& move) const
{
    return std::ranges::all_of(move.ends, [&](const End& end) {
        if (!end.note || end.note->m_box.isReadOnly()) return false;
        const State now = end.note->Now(), expected = move.isUndone ? end.before : end.after;
        return now == expected || (!move.isUndone && end.note == this && now.steps == expected.steps);
    });
}

bool MovedTexts::Step(bool isUndone)
{
    const auto fits = [&](const auto& move) { return move->isUndone == isUndone && CanStep(*move); };
    const auto found = std::ranges::find_if(m_moves, fits);
    if (found == m_moves.end()) return false;
    const std::shared_ptr<Move> move = *found;
    for (End& end : move->ends) {
        end.note->StepHere(isUndone, end.note == this);
        (isUndone ? end.after : end.before) = end.note->Now();
    }
    move->isUndone = !isUndone;
    return true;
}

bool MovedTexts::GiveBack()
{
    const auto isNext = [this](const auto& move) {
        const auto& [from, to] = move->ends;
        const bool hasGoneOn =
            from.note && !from.note->m_box.isReadOnly() && from.note->Now().steps >= from.after.steps;
        return !move->isUndone && hasGoneOn && to.note == this && to.after.steps == Now().steps;
    };
    const auto found = std::ranges::find_if(m_moves, isNext);
    if (found == m_moves.end()) return false;
    const std::shared_ptr<Move> move = *found;
    StepHere(false, true);
    QTextDocument& source = *move->ends[0].note->m_box.document();
    for (End& end : move->ends)
        end.note.clear();
    QTextCursor place(&source);
    place.setPosition(std::min(move->place, source.characterCount() - 1));
    place.insertFragment(move->text);
    Forget();
    return true;
}

// Only the note with the caret scrolls to the change.
void MovedTexts::StepHere(bool isUndone, bool withCaret)
{
    QTextDocument& document = *m_box.document();
    if (isUndone)
        withCaret ? m_box.redo() : document.redo();
    else
        withCaret ? m_box.undo() : document.undo();
}

// A new step replaces undone ones, so moves among them cannot be redone.
void MovedTexts::Forget()
{
    std::erase_if(m_moves, [this](const auto& move) {
        for (End& end : move->ends)
            if (end.note == this && end.after.steps >= Now().steps) end.note.clear();
        return std::ranges::any_of(move->ends, [](const End& end) { return end.note.isNull(); });
    });
}
