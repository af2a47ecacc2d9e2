// The names of installed fonts as notes and settings keep them.
#pragma once

#include <QStringList>

// The maker in brackets behind a name is the toolkit's own addition, which no other program that reads a note knows.
QString WithoutMaker(const QString& family);

// The families by these names, and with them the font that notes have when nobody chooses one, which is shown by its
// metric twin. Sorted; none of none.
QStringList KeptNames(const QStringList& families);
QStringList FontFamilies(); // of what is installed
