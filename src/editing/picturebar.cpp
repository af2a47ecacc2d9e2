#include "editing/picturebar.h"

#include "hall/bars.h"
#include "platform/controls/picturestrip.h"
#include "platform/desktop/folders.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/msgbox.h"
#include "platform/look/paper.h"
#include "platform/richtext/boundedimage.h"
#include "platform/richtext/htmlimages.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfwriter.h"
#include "platform/richtext/selectionformat.h"
#include "platform/runtime/durablefile.h"
#include "platform/runtime/errortail.h"
#include "settings/messages.h"
#include "settings/settings.h"
#include "state/workgroupstate.h"

#include <QDir>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QSaveFile>
#include <QTextDocument>
#include <QUrl>

namespace {
constexpr int PictureSize = 32; // logical pixels a side
const QString Blanks(3, u' ');  // behind each picture

// Regular files only: reading a pipe would never end.
QByteArray ReadIcon(const QString& path)
{
    const QByteArray content = DataOfFile(QUrl::fromLocalFile(path));
    if (content.isEmpty()) errors::RaiseAccess();
    return content;
}

void AppendIcon(QTextCursor& end, const QString& path)
{
    if (!InsertPicture(end, ReadIcon(path), {.exact = QSize(PictureSize, PictureSize)}))
        throw RunTimeError{errors::InvalidPicture, u"Invalid picture"_s};
    end.insertText(Blanks);
}

// The picture and one blank in the initial font, so that typing behind it looks as usual.
QByteArray PictureAsRtf(const NotePicture& picture)
{
    QTextDocument document;
    QTextCursor cursor(&document);
    InsertPicture(cursor, picture.image, {.exact = picture.shown.toSize()});
    const QFont font(Read(settings::DefaultFontName), qMax(1, Read(settings::DefaultFontSize)));
    cursor.insertText(u" "_s, FormatOf(font));
    cursor.select(QTextCursor::Document);
    return WriteRtf(cursor);
}

QPixmap CursorOf(const QImage& picture, double pixelRatio)
{
    const int side = qRound(PictureSize * pixelRatio);
    QPixmap cursor = QPixmap::fromImage(picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    cursor.setDevicePixelRatio(pixelRatio);
    return cursor;
}

void Refuse(const QString& text)
{
    MsgBox(text, msgbox::Exclamation, messages::HelpWizard);
}

void RefuseFormat()
{
    Refuse(u"Incorrect File Format!\nPlease select Icon(*.ico) files only."_s);
}
constexpr QByteArrayView PictureStart("{\\pict");
constexpr QByteArrayView FixedHeader("{\\pict\\wmetafile8\\picw846\\pich846\\picwgoal479\\pichgoal479");

// Keeps what precedes the picture on its line and drops the rest of its header.
QByteArray Fixed(const QByteArray& line)
{
    const qsizetype at = line.indexOf(PictureStart);
    return at < 0 ? line : line.first(at) + FixedHeader.toByteArray();
}

QByteArray WithoutLineEnd(QByteArray line)
{
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

void FixPictures(const QString& path)
{
    QFile old(path);
    if (!old.exists()) throw RunTimeError{errors::FileNotFound, u"File not found"_s};
    if (!old.open(QIODevice::ReadOnly)) errors::RaiseAccess();
    QSaveFile fixed(path);
    if (!fixed.open(QIODevice::WriteOnly)) errors::RaiseAccess();
    while (!old.atEnd())
        fixed.write(Fixed(WithoutLineEnd(old.readLine())) + "\r\n");
    if (!fixed.flush() || !fixed.commit()) errors::RaiseAccess();
}
} // namespace

void PictureBar::subLoadIcons()
{
    m_loaded = true;
    const QDir icons(folders::IconsDirectory());
    QTextCursor end(m_sidebar.tbPictureBox->document());
    end.movePosition(QTextCursor::End);
    const ErrorTail tail(" in MainForm, subLoadIcons"_L1);
    const Hourglass hourglass;
    end.beginEditBlock(); // lay out once, not after each of hundreds of pictures
    tail([&] {
        for (const QString& file : icons.entryList({u"*.ico"_s}, QDir::Files, QDir::Name | QDir::IgnoreCase))
            AppendIcon(end, icons.filePath(file));
    });
    end.endEditBlock();
}

void PictureBar::btnReloadIcons_Click()
{
    m_sidebar.tbPictureBox->SetTextRTF({});
    m_sidebar.tbPictureBox->SetBackColor(paper::Paper);
    subLoadIcons();
}

void PictureBar::tbPictureBox_Shown()
{
    if (!m_loaded) subLoadIcons();
}

void PictureBar::tbPictureBox_OLEStartDrag(QMimeData& Data, QPixmap& cursor)
{
    g_lUnlockTicks = 0;
    const ErrorTail tail(" in MainForm, tbPictureBox_OLEStartDrag"_L1);
    tail([&] {
        const auto picture = OnlyPicture(m_sidebar.tbPictureBox->textCursor());
        if (!picture || picture->image.isNull()) return Refuse(u"Please select one picture at a time."_s);
        Data.setData(u"text/rtf"_s, PictureAsRtf(*picture));
        Data.setImageData(picture->image);
        cursor = CursorOf(picture->image, m_sidebar.tbPictureBox->devicePixelRatioF());
    });
}

void PictureBar::tbPictureBox_OLECompleteDrag()
{
    g_lUnlockTicks = 0;
    SetMousePointer(mousepointer::Default);
}

void PictureBar::tbPictureBox_OLEDragDrop(const QStringList& files)
{
    g_lUnlockTicks = 0;
    const ErrorTail tail(" in MainForm, tbPictureBox_OLEDragDrop"_L1);
    tail([&] {
        const QString& dropped = files.constFirst();
        if (!dropped.contains(u".ico", Qt::CaseInsensitive)) return RefuseFormat();
        const QDir icons(folders::IconsDirectory());
        const QString name = QFileInfo(dropped).fileName();
        if (icons.entryList(QDir::Files).contains(name))
            return Refuse(u"File Exists!\nPlease select another Icon(*.ico) file."_s);
        const QByteArray content = ReadIcon(dropped);
        // The strip ends at the first damaged picture, so a damaged file must not get into the folder.
        if (ImageSize(content).isEmpty()) return RefuseFormat();
        if (!WriteDurably(icons.filePath(name), content)) errors::RaiseAccess();
    });
}

void subFixPictures()
{
    ErrorTail{" in MainForm, subFixPictures"_L1}(
        [] { FixPictures(folders::ApplicationDirectory() + u"/pictures.orl"_s); });
}

void subTransparentBlt(QImage& destination, const QImage& source, const QRect& part, int destX, int destY,
                       QRgb transparent)
{
    QImage cut = source.copy(part).convertToFormat(QImage::Format_RGB32);
    cut.setAlphaChannel(cut.createMaskFromColor(transparent | 0xFF000000, Qt::MaskOutColor));
    QPainter(&destination).drawImage(destX, destY, cut);
}
