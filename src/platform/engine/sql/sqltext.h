// The SQL statements of a store. Names may hold blanks and quotes. Rows are returned as the id, then the fields in
// their order.
#pragma once

#include "platform/engine/sql/sqldialect.h"
#include "platform/engine/store.h"

#include <QVarLengthArray>

#include <span>

// How to find a place in an index: rows of one kind, walked forward or backward. In ascending order rows without a key
// come first, in descending order last.
struct LookUp
{
    enum Key
    {
        Any,
        Equal, // to the place's key, which is not null
        Greater,
        Less, // Greater and Less leave out rows without a key
        None,
        Some
    };
    Key key;
    bool pastId; // past the place's id in the direction of the walk
    bool forward;

    bool BindsKey() const { return key == Equal || key == Greater || key == Less; }
};

// The look-ups to try in turn until one finds a row.
QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull);

class SqlText
{
public:
    // A schema, if given, precedes every table name.
    explicit SqlText(const SqlDialect& dialect, const QString& schema = {});

    // Binds the key, the id and the sought text, those that are needed, in this order. Searches for the text in a
    // field, unless the field is empty.
    QString Find(const TableDef& table, const Index& index, std::span<const LookUp> lookUps, const QString& soughtField,
                 int limit) const;
    QString FindKeys(const TableDef& table, const Index& index) const; // binds a list of texts
    QString Fetch(const TableDef& table) const;                        // binds the id
    // The statements that write return the ids of the rows that they have written.
    QString Insert(const TableDef& table, std::size_t rows = 1) const; // binds the values
    // Binds the id, null for a new one, and the values. Writes no duplicate. For files only.
    QString Restore(const TableDef& table) const;
    QString Replace(const TableDef& table) const; // binds the new values, the id and the old values
    QString Erase(const TableDef& table) const;   // binds the id and the old values

    QString CreateTable(const TableDef& table) const;
    QString CreateIndex(const TableDef& table, const Index& index) const;

    QString Mark(std::size_t number) const; // the place of the value with this number, counted from 1
    QString Qualified(const QString& table) const;
    static QString Quoted(QString name);

private:
    QString Marks(std::size_t first, std::size_t count) const;
    QString Unchanged(const TableDef& table, std::size_t first) const;
    QString KeyOrder(const Index& index, bool ascending) const;
    QString Order(const Index& index, bool forward) const;

    const SqlDialect& m_dialect;
    QString m_prefix;
};
