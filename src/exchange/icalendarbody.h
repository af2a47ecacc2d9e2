// The text of an entry of an iCalendar file as rich text.
#pragma once

#include "exchange/icalendartext.h"

#include <QHash>
#include <QTextCharFormat>
#include <QTextDocument>

// What the texts and days of a file may take.
struct CalendarRoom
{
    qint64 days = 500'000;
    qint64 bytes = 100 << 20;
    qint64 html = 4 << 20; // it takes a second to read so much

    bool IsFull() const { return days <= 0 || bytes <= 0; }
};

class CalendarBody
{
public:
    // Of Orrelin's own entries the description is the whole text. Text without a form of its own gets this one. The
    // document is only worked with.
    CalendarBody(const CalendarPart& entry, bool isOwn, const QTextCharFormat& form, QTextDocument& document,
                 CalendarRoom& room);

    const QString& Title() const { return m_title; }
    bool IsBlank() const { return m_text.trimmed().isEmpty() && m_rtf.isEmpty(); } // below the title
    bool IsCut() const { return m_isCut; }                                         // or without its form
    QByteArray Below(const QString& head); // as a line of its own, but of Orrelin's own entries

private:
    QByteArray RtfOf(QString html);
    void TakeForeign(const QString& place);
    void TakeOwn();
    void DropFirstLine();

    const QTextCharFormat& m_form;
    QTextDocument& m_document;
    CalendarRoom& m_room;
    QString m_title, m_text;
    QByteArray m_rtf; // instead of the text's end, if that has a form
    QHash<QString, QByteArray> m_made;
    bool m_isOwn, m_isCut = false;
};
