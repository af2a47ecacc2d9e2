// The forms of notes as style sheets. Knows only QtGui.
#pragma once

#include <QHash>
#include <QString>
#include <QTextFormat>

// A length of a note, relative to its text: that of the page is larger.
QString Em(double pixels);

QString StyleOf(const QTextBlockFormat& paragraph); // empty if it has the page's

// A class for each colour of text, with a lighter one in the dark. Black is the page's ink.
class PageColors
{
public:
    QString ClassOf(const QTextCharFormat& format);
    QString Rules() const;

private:
    QHash<QString, int> m_places; // by rule
    QString m_rules, m_darkRules;
};
