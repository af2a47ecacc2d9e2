// Links in a note: their places in the text, and what typing does with them. Knows only QtGui.
#pragma once

#include <QTextCursor>
#include <QTextDocument>

#include <optional>

class QTextBlock;

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

// Links that show their own address still do after their text has been changed, or are none any more. To be made before
// a change that may reach from the selection's paragraphs into those of another place.
class FollowedLinks
{
public:
    explicit FollowedLinks(const QTextCursor& selection, int place = -1);
    void FollowText(); // within the undo step of the change, if there was one

private:
    struct Link
    {
        QTextCursor range; // moves with the text
        QString text, target;
    };

    void AddLinksOf(const QTextBlock& paragraph);
    void Retarget(const LinkPlace& place);

    QTextDocument& m_document;
    int m_revision; // before the change, as the links are
    QList<Link> m_links;
};
