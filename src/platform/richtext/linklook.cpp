#include "platform/richtext/linklook.h"

#include "platform/desktop/links.h"
#include "platform/look/paper.h"

namespace {
// Bits of LinkLookProperty: what the look has replaced.
enum LinkLook
{
    Line = 1,    // no line
    NoInk = 2,   // no colour
    BlackInk = 4 // black
};

int LookFor(const QTextCharFormat& format)
{
    int look = 0;
    if (format.underlineStyle() == QTextCharFormat::NoUnderline) look |= Line;
    if (!format.hasProperty(QTextFormat::ForegroundBrush)) return look | NoInk;
    return format.foreground().color() == Qt::black ? look | BlackInk : look;
}
} // namespace

QTextCharFormat LinkFormat(const QTextCharFormat& format, const QString& target)
{
    QTextCharFormat link = WithoutLinkLook(format);
    link.setAnchor(true);
    link.setAnchorHref(target);
    const int look = links::MayOpen(target) ? LookFor(link) : 0;
    if (look == 0) return link;
    link.setProperty(LinkLookProperty, look);
    if (look & Line) link.setUnderlineStyle(QTextCharFormat::SingleUnderline);
    if (look & (NoInk | BlackInk)) link.setForeground(paper::Accent);
    return link;
}

QTextCharFormat WithoutLinkLook(const QTextCharFormat& format)
{
    const int look = format.intProperty(LinkLookProperty);
    if (look == 0) return format;
    QTextCharFormat own = format;
    own.clearProperty(LinkLookProperty);
    if (look & Line && own.underlineStyle() == QTextCharFormat::SingleUnderline)
        own.setUnderlineStyle(QTextCharFormat::NoUnderline);
    const bool isAccent = own.foreground().color() == paper::Accent;
    if (look & NoInk && isAccent) own.clearForeground();
    if (look & BlackInk && isAccent) own.setForeground(Qt::black);
    return own;
}

QTextCharFormat WithoutLink(const QTextCharFormat& format)
{
    QTextCharFormat own = WithoutLinkLook(format);
    for (const auto property : {QTextFormat::IsAnchor, QTextFormat::AnchorHref, QTextFormat::AnchorName})
        own.clearProperty(property);
    return own;
}
