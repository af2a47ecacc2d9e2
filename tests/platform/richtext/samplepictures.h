// Sample pictures, and access to a document's pictures.
#pragma once

#include "platform/richtext/rtfpicture.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QtEndian>

inline const QColor g_left(200, 40, 40), g_right(40, 40, 200);

// Red on the left, blue on the right.
inline QImage Sample(QSize size = {40, 20}, QImage::Format format = QImage::Format_RGB32)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(g_left);
    QPainter(&image).fillRect(QRect(size.width() / 2, 0, size.width(), size.height()), g_right);
    return image.convertToFormat(format);
}

inline QByteArray FileOf(const QImage& image, const char* format)
{
    QByteArray file;
    QBuffer buffer(&file);
    image.save(&buffer, format, 100);
    return file;
}

template <typename Number>
void Append(QByteArray& bytes, std::initializer_list<Number> numbers)
{
    for (const Number number : numbers) {
        const Number little = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
    }
}

inline bool IsNear(QColor one, QColor other)
{
    return qAbs(one.red() - other.red()) < 12 && qAbs(one.green() - other.green()) < 12 &&
           qAbs(one.blue() - other.blue()) < 12;
}

inline QByteArray Group(const char* kind, const QByteArray& data, QSize shown = {40, 20})
{
    return QByteArray("{\\pict\\") + kind + "\\picwgoal" + QByteArray::number(shown.width() * 15) + "\\pichgoal" +
           QByteArray::number(shown.height() * 15) + ' ' + data.toHex() + '}';
}

inline QTextCursor Selection(QTextDocument& document, int begin, int end)
{
    QTextCursor cursor(&document);
    cursor.setPosition(begin);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
}

inline QByteArray GroupAt(QTextDocument& document, int position)
{
    return Selection(document, position, position + 1).charFormat().property(PictureSourceProperty).toByteArray();
}
