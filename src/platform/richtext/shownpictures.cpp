#include "platform/richtext/shownpictures.h"

#include "platform/look/paper.h"
#include "platform/richtext/pictureimage.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QTextDocument>
#include <QTextObjectInterface>

namespace {

// Draws the characters that are pictures, sharp on any screen and only when they come into view.
class PictureHandler : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit PictureHandler(QTextDocument& document) : QObject(&document)
    {
        // A layout is made when somebody wants to see the document, and to ask for it would make one.
        connect(&document, &QTextDocument::documentLayoutChanged, this, [this, &document] { Serve(document); });
        if (document.findChild<QAbstractTextDocumentLayout*>({}, Qt::FindDirectChildrenOnly)) Serve(document);
    }

    QSizeF intrinsicSize(QTextDocument* document, int, const QTextFormat& format) override
    {
        const QTextImageFormat picture = format.toImageFormat();
        const QPaintDevice* device = document->documentLayout()->paintDevice();
        const QScreen* screen = QGuiApplication::primaryScreen();
        const double scale = device && screen ? device->logicalDpiY() / screen->logicalDotsPerInchY() : 1;
        return QSizeF(qRound(picture.width()), qRound(picture.height())) * scale;
    }

    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int, const QTextFormat& format) override
    {
        // Whole pixels of the device, since a picture between them is a blurred one.
        const QTransform toDevice = painter->deviceTransform();
        const QRectF onDevice = toDevice.mapRect(rect);
        const QRect whole(onDevice.topLeft().toPoint(), onDevice.size().toSize());
        const QImage image = ImageOfPicture(format.toImageFormat(), whole.size());
        if (image.isNull()) return DrawFrame(*painter, rect);
        painter->save();
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(toDevice.inverted().mapRect(QRectF(whole)), image);
        painter->restore();
    }

private:
    void Serve(const QTextDocument& document)
    {
        document.documentLayout()->registerHandler(QTextFormat::ImageObject, this);
    }

    static void DrawFrame(QPainter& painter, const QRectF& rect)
    {
        painter.save();
        painter.setPen(paper::SoftInk);
        painter.setBrush(paper::MemoPaper);
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
        painter.restore();
    }
};

} // namespace

void ShowPictures(QTextDocument& document)
{
    if (document.findChild<PictureHandler*>({}, Qt::FindDirectChildrenOnly)) return;
    new PictureHandler(document);
}

#include "shownpictures.moc"
