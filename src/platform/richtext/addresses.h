// Addresses of the web, of mail and of files in plain text. Knows only QtCore.
#pragma once

#include <QList>
#include <QString>

struct Address
{
    qsizetype begin = 0, size = 0; // in the text
    QString target;                // what it leads to
};

// Signs that end a sentence and brackets that are not opened within are not part of an address.
QList<Address> AddressesIn(QStringView text);

// Where the text leads to if all of it is an address, else empty.
QString TargetOf(const QString& text);
