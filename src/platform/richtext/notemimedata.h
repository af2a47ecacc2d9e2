// A part of a note on the clipboard or in a drag: rich text. Other formats are made on request. Knows only QtGui.
#pragma once

#include <QFont>
#include <QMimeData>

// This program's rich text ends with \par only if the selection does. Other programs always write one.
inline constexpr char16_t NoteFormat[] = u"application/x-orrelin-note";
inline constexpr const char16_t* RichTextFormats[] = {u"text/rtf", u"application/rtf", u"text/richtext",
                                                      u"Rich Text Format"};

class NoteMimeData : public QMimeData
{
    Q_OBJECT

public:
    NoteMimeData(const QByteArray& rtf, const QFont& font, bool isPicture);

    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    QByteArray m_rtf;
    QFont m_font;
    bool m_isPicture; // a single picture
};
