#include "platform/controls/resources.h"

#include <QIconEngine>

namespace {
class LatePicture : public QIconEngine
{
public:
    explicit LatePicture(const QString& file) : m_file(file) {}

    QIconEngine* clone() const override { return new LatePicture(m_file); }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        Read().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return Read().pixmap(size, 1, mode, state);
    }

private:
    const QIcon& Read()
    {
        if (m_picture.isNull()) m_picture = QIcon(m_file);
        return m_picture;
    }

    QString m_file;
    QIcon m_picture;
};
} // namespace

QIcon PictureIcon(const QString& file)
{
    return QIcon(new LatePicture(file));
}
