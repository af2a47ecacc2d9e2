// Printing into a PDF file, and reading the printed page with other programs.
#pragma once

#include "support.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QImage>
#include <QPrintDialog>
#include <QProcess>
#include <QRectF>
#include <QRegularExpression>

#include <vector>

// Chooses printing into this file in the next print dialog and confirms.
inline void PrintNextTo(const QString& path)
{
    OnNextModal<QPrintDialog>([path](QPrintDialog& dialog) {
        auto* const printers = dialog.findChild<QComboBox*>(u"printers"_s);
        printers->setCurrentIndex(printers->count() - 1);
        dialog.findChild<QLineEdit*>(u"filename"_s)->setText(path);
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
}

inline void CancelNextPrintDialog()
{
    OnNextModal<QPrintDialog>([](QPrintDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

inline QByteArray OutputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

struct Word
{
    QString text;
    QRectF at; // in points from the paper's corner
};

// The words of a PDF of one page.
class PrintedPage
{
public:
    explicit PrintedPage(const QString& path) : m_path(path)
    {
        const QString html = QString::fromUtf8(OutputOf(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s}));
        static const QRegularExpression page(u"<page width=\"([^\"]+)\" height=\"([^\"]+)\""_s);
        static const QRegularExpression word(
            u"<word xMin=\"([^\"]+)\" yMin=\"([^\"]+)\" xMax=\"([^\"]+)\" yMax=\"([^\"]+)\">([^<]*)</word>"_s);
        for (auto found = page.globalMatch(html); found.hasNext(); ++m_pages) {
            const auto match = found.next();
            m_size = QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble());
        }
        for (auto found = word.globalMatch(html); found.hasNext();) {
            const auto match = found.next();
            const auto number = [&](int i) { return match.captured(i).toDouble(); };
            m_words.push_back(
                {match.captured(5), QRectF(QPointF(number(1), number(2)), QPointF(number(3), number(4)))});
        }
    }

    int Pages() const { return m_pages; }
    QSizeF Size() const { return m_size; } // points
    const std::vector<Word>& Words() const { return m_words; }

    // The place of this word; null if it is not there exactly once.
    QRectF At(const QString& text) const
    {
        QRectF place;
        for (const Word& word : m_words) {
            if (word.text != text) continue;
            if (!place.isNull()) return {};
            place = word.at;
        }
        return place;
    }

    // The page as a picture with this many dots a point.
    QImage Painted(int dots) const
    {
        return QImage::fromData(OutputOf(u"pdftoppm"_s, {u"-png"_s, u"-r"_s, QString::number(72 * dots), m_path}));
    }

    // The bounds in points of all dots whose colour fits.
    template <typename Fits>
    QRectF Painted(Fits fits) const
    {
        constexpr int Dots = 2;
        const QImage image = Painted(Dots);
        QRect bounds;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (fits(image.pixelColor(x, y))) bounds |= QRect(x, y, 1, 1);
            }
        }
        return QRectF(QPointF(bounds.topLeft()) / Dots, QSizeF(bounds.size()) / Dots);
    }

private:
    QString m_path;
    int m_pages = 0;
    QSizeF m_size;
    std::vector<Word> m_words;
};
