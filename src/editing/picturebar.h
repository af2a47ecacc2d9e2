// The strip of small pictures in the sidebar: what lies in the icons directory, to be dragged into notes.
#pragma once

#include <QStringList>

class QMimeData;
class QPixmap;
struct Sidebar;

class PictureBar
{
public:
    explicit PictureBar(const Sidebar& sidebar) : m_sidebar(sidebar) {}

    // Fills the strip: every icon in the order of the names, three blanks behind each. Ends at a damaged one.
    void subLoadIcons();
    void btnReloadIcons_Click();

    void tbPictureBox_Shown(); // nobody waits at start-up for pictures that are not seen
    void tbPictureBox_OLEStartDrag(QMimeData& Data, QPixmap& cursor);
    void tbPictureBox_OLECompleteDrag();
    void tbPictureBox_OLEDragDrop(const QStringList& files); // the first one counts

private:
    const Sidebar& m_sidebar;
    bool m_loaded = false;
};
