#include "editing/fontcommand.h"
#include "editing/zoomboxform.h"
#include "platform/richtext/notepicture.h"
#include "platform/richtext/rtfwriter.h"
#include "rows.h"

#include <QApplication>
#include <QBuffer>
#include <QKeyEvent>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {
constexpr int NotesInLargeOne = 200; // 60,000 characters, twenty pages
constexpr int Pictures = 10;
constexpr QSize PictureSize(640, 480);
constexpr QRect Place(40, 40, 700, 600);
constexpr Turns SomeTurns{20};
constexpr Turns ManyKeys{30, 20};

// Like a camera's picture: no area of one colour.
QImage Photograph(int number)
{
    QImage image(PictureSize, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * number, y * 3 + number, (x * y) >> 6));
    }
    return image;
}

QByteArray AsJpeg(const QImage& image)
{
    QBuffer file;
    image.save(&file, "JPG");
    return file.data();
}

// The large note: as rich text for the program, as text and decoded pictures for the floor.
struct LargeNote
{
    LargeNote()
    {
        for (int number = 0; number < NotesInLargeOne; ++number)
            Notes.push_back(MakeNote(number));
        QTextDocument document;
        Build(Notes, document);
        for (int number = 0; number < Pictures; ++number) {
            Images.push_back(Photograph(number + 1));
            QTextCursor cursor(document.findBlockByNumber(PlaceOf(number)));
            InsertPicture(cursor, AsJpeg(Images.back()), {.width = PictureSize.width()});
        }
        Rtf = WriteRtf(document);
    }

    static int PlaceOf(int picture) { return picture * NotesInLargeOne / Pictures; } // index of its paragraph

    std::vector<Note> Notes;
    std::vector<QImage> Images;
    QByteArray Rtf;
};

const LargeNote& TheNote()
{
    static const LargeNote note;
    return note;
}

FontCommand g_fontCommand;
PaintCount g_paintings;

std::unique_ptr<ZoomBoxForm> OpenDayView()
{
    auto form = std::make_unique<ZoomBoxForm>(nullptr, u"Zoom View/Edit For JULY 4, 1999"_s, TheNote().Rtf, Place,
                                              g_fontCommand);
    g_paintings.Watch(form->tbZoom());
    form->show();
    PaintNow();
    return form;
}

std::unique_ptr<QDialog> OpenBareView()
{
    auto form = std::make_unique<QDialog>();
    auto* edit = new QTextEdit;
    (new QVBoxLayout(form.get()))->addWidget(edit);
    Build(TheNote().Notes, *edit->document());
    for (int number = 0; number < Pictures; ++number) {
        QTextCursor cursor(edit->document()->findBlockByNumber(LargeNote::PlaceOf(number)));
        cursor.insertImage(TheNote().Images[std::size_t(number)], QString::number(number));
    }
    g_paintings.Watch(*edit);
    form->setGeometry(Place);
    form->show();
    PaintNow();
    return form;
}

void TypeInto(QWidget& box, bool& typed)
{
    const int key = typed ? Qt::Key_Backspace : Qt::Key_X;
    QKeyEvent press(QEvent::KeyPress, key, {}, typed ? u"\b"_s : u"x"_s);
    typed = !typed;
    QApplication::sendEvent(&box, &press);
    PaintNow();
}

template <typename Open>
Side KeystrokesIn(Open open)
{
    static QDialog* form = nullptr; // kept for the rest of the run
    static bool typed = false;
    return {[] { TypeInto(*form->findChild<QTextEdit*>(), typed); },
            [open] {
                if (!form) form = open().release();
                form->findChild<QTextEdit*>()->setFocus();
                g_paintings.Take();
            },
            [] { return g_paintings.Take() >= 1; }};
}
} // namespace

void AddDayViewRows(const TakeRow& add)
{
    const auto painted = [] { return g_paintings.Take() >= 1; };
    const auto settle = [] { TheNote(), PaintNow(), g_paintings.Take(); };
    add({"day view of 20 pages, 10 pictures",
         {[] { OpenDayView(); }, settle, painted},
         {[] { OpenBareView(); }, settle, painted},
         SomeTurns});
    add({"keystroke in that day view", KeystrokesIn([] { return OpenDayView(); }),
         KeystrokesIn([] { return OpenBareView(); }), ManyKeys});
}
