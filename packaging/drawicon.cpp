// drawicon PICTURE.svg PICTURE.png SIZE: draws the picture at SIZE pixels a side; it does not scale pixels.
#include <QCoreApplication>
#include <QImageReader>
#include <QStringList>

#include <cstdio>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: drawicon PICTURE.svg PICTURE.png SIZE\n", stderr);
        return 1;
    }
    const int size = arguments[3].toInt();
    QImageReader reader(arguments[1], "svg");
    reader.setScaledSize(QSize(size, size));
    const QImage image = reader.read();
    if (!image.isNull() && image.save(arguments[2], "png")) return 0;
    std::fprintf(stderr, "drawicon: %s: %s\n", qPrintable(arguments[2]), qPrintable(reader.errorString()));
    return 1;
}
