// Links in a note: their places in the text, and what typing does with them. Knows only QtGui.
#pragma once

#include <QTextCursor>
#include <QTextDocument>

#include <optional>

// The look is taken off while the forms of a selection change, since a line or a colour of the person's is not the
// look.
void HideLinkLook(const QTextCursor& selection);
void ShowLinkLook(const QTextCursor& selection);

struct LinkPlace
{
    int begin, end; // in the document, within one paragraph
    QString target;
};

// The link that the character at this position belongs to.
std::optional<LinkPlace> LinkAt(const QTextDocument& document, int position);

// Whether text typed instead of the selection, or at the caret, belongs to a link: only where a part of the link stays
// on both sides of the caret, or on one side of a selection.
bool IsTypedIntoLink(const QTextCursor& selection);

// Makes links of the addresses in the words from begin to end, as an undo step of its own that ends at the caret. Links
// with another text than their address are left alone.
void MakeLinks(QTextCursor caret, int begin, int end);

// A link that shows its own address still does after its text has been changed, or is none any more. To be made before
// the change.
class FollowedLink
{
public:
    explicit FollowedLink(const QTextCursor& caret);
    void FollowText(int caret); // where it is now; within the undo step of the change

private:
    void Retarget(const LinkPlace& place);

    QTextDocument& m_document;
    int m_characters;                 // before the change
    std::optional<LinkPlace> m_place; // likewise; empty: nothing to follow
};
