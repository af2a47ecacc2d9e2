// The statements of a store, as text. Names come from callers and may hold blanks and quotes. Rows are given as the id,
// then the fields in their order.
#pragma once

#include "platform/engine/sql/sqldialect.h"
#include "platform/engine/store.h"

#include <QVarLengthArray>

#include <span>

// How a place in an index is looked up: the rows of one kind, in the direction of the index or against it. Rows without
// a key come before all others in ascending order, behind them in descending order.
struct LookUp
{
    enum Key
    {
        Any,
        Equal, // to the place's, which is not null
        Greater,
        Less, // both leave rows without a key out
        None,
        Some
    };
    Key key;
    bool pastId; // beyond the place's id in the direction of the walk
    bool forward;

    bool BindsKey() const { return key == Equal || key == Greater || key == Less; }
};

// The look-ups to be made one after the other until one finds a row.
QVarLengthArray<LookUp, 3> LookUpsFor(const Index& index, From from, bool keyIsNull);

class SqlText
{
public:
    // A schema, if there is one, stands before the name of every table.
    explicit SqlText(const SqlDialect& dialect, const QString& schema = {});

    // Binds the key, the id and what is sought, those of them that are needed, in this order. What is sought is looked
    // for in a field, unless that is empty.
    QString Find(const TableDef& table, const Index& index, std::span<const LookUp> lookUps, const QString& soughtField,
                 int limit) const;
    QString FindKeys(const TableDef& table, const Index& index) const; // binds a list of texts
    QString Fetch(const TableDef& table) const;                        // binds the id
    QString Insert(const TableDef& table, std::size_t rows = 1) const; // binds the values
    // Binds the id, null for a new one, and the values. Gives the id, or nothing for a duplicate. In a file alone.
    QString Restore(const TableDef& table) const;
    QString Replace(const TableDef& table) const; // binds the new values, the id and the old ones
    QString Erase(const TableDef& table) const;   // binds the id and the old values

    QString CreateTable(const TableDef& table) const;
    QString CreateIndex(const TableDef& table, const Index& index) const;

    QString Mark(std::size_t number) const; // a place for the value of this number, counted from 1
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
