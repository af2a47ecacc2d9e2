// The strip of small pictures in the sidebar: what lies in the icons directory, to be dragged into notes.
#pragma once

#include <QRect>
#include <QRgb>
#include <QStringList>

class QImage;
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

// Two routines for pictures of older versions. Nothing calls them at present; they stand ready for those who still have
// such files.

// Gives every picture of the rich text beside the program ("pictures.orl" in the application directory) the header of
// an icon: 846 hundredths of a millimetre, shown at 479 twips. Ends quietly at an error.
void subFixPictures();

// Draws a part of the source, leaving out the pixels of one colour. What lies outside either image is left out too.
void subTransparentBlt(QImage& destination, const QImage& source, const QRect& part, int destX, int destY,
                       QRgb transparent);
