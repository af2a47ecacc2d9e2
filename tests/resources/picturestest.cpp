#include "testmain.h"

// Every shipped picture has its icon file, and each size in it is readable and not empty.
#include <QDir>
#include <QImageReader>

class PicturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void EveryPictureHasItsIcon()
    {
        const QStringList pictures = QDir(QStringLiteral(PICTURES_FOLDER)).entryList({u"*.svg"_s});
        QVERIFY(pictures.size() >= 40);
        for (const QString& picture : pictures) {
            const InRow row(this, picture);
            QImageReader reader(QStringLiteral(ICONS_FOLDER "/%1.ico").arg(picture.chopped(4)), "ico");
            QCOMPARE(reader.imageCount(), 5);
            for (int i = 0; i < 5; ++i) {
                QVERIFY(reader.jumpToImage(i));
                const QImage image = reader.read();
                const int size = QList{16, 24, 32, 48, 64}[i];
                QCOMPARE(image.size(), QSize(size, size));

                const int last = size - 1;
                for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)})
                    QCOMPARE(qAlpha(image.pixel(corner)), 0);
                int inked = 0;
                for (int y = 0; y < size; ++y)
                    for (int x = 0; x < size; ++x)
                        inked += qAlpha(image.pixel(x, y)) > 128;
                QVERIFY2(inked > size * size / 8, qPrintable(QString::number(inked)));
            }
        }
    }
};

ORRELIN_TEST_WITHOUT_WINDOWS(PicturesTest)
#include "picturestest.moc"
