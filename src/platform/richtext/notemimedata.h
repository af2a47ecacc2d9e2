// A piece of a note as it goes to the clipboard or is dragged: rich text, and all else made of it when somebody asks.
// Knows only QtGui.
#pragma once

#include <QFont>
#include <QMimeData>

// Rich text of this program: a paragraph's mark at its end ends a paragraph. That of others ends with one in any case.
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
    bool m_isPicture; // one, and nothing else
};
