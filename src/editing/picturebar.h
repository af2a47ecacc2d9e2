// The sidebar's strip of pictures from the icons directory, to be dragged into notes.
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

    // Appends every icon by name, each followed by three blanks. Stops at the first damaged file.
    void subLoadIcons();
    void btnReloadIcons_Click();

    void tbPictureBox_Shown(); // loads the pictures when they are first seen, which speeds up the start
    void tbPictureBox_OLEStartDrag(QMimeData& Data, QPixmap& cursor);
    void tbPictureBox_OLECompleteDrag();
    void tbPictureBox_OLEDragDrop(const QStringList& files); // only the first file counts

private:
    const Sidebar& m_sidebar;
    bool m_loaded = false;
};

// Two routines for pictures of older versions. No command calls them; they are kept for people who have such files.

// Gives every picture in "pictures.orl" (rich text in the application directory) the header of an icon: 846 hundredths
// of a millimetre, shown at 479 twips. An error ends it and is logged.
void subFixPictures();

// Draws a part of the source except the pixels of one colour, clipped to both images.
void subTransparentBlt(QImage& destination, const QImage& source, const QRect& part, int destX, int destY,
                       QRgb transparent);
