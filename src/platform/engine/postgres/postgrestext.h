// The statements that the server's store uses, as text. Names come from callers and may hold blanks and quotes; every
// table is named with the planner's schema before it.
#pragma once

#include "platform/engine/lookup.h"

#include <optional>
#include <span>
#include <string>

class PostgresText
{
public:
    // Schema is the planner's own, channel the one on which its commits are told.
    PostgresText(const QString& schema, const QString& channel);

    // Columns: a number that tells nothing, the id, the fields. Binds the key, the id and the run, those of them that
    // the look-ups need, in this order. Run is a piece of text that what is sought contains, in lower case.
    std::string Find(const TableDef& table, const Index& index, std::span<const LookUp> lookUps,
                     const QString& runField, int limit) const;
    std::string FindKeys(const TableDef& table, const Index& index) const; // binds an array of texts; columns as Find
    std::string Fetch(const TableDef& table) const;                        // binds the id; the id, the fields
    std::string Page(const TableDef& table, int limit) const;              // binds an id: those after it, as Fetch

    // Each binds its values and then two texts to be told to others. Gives the transaction's number as its last column,
    // and Insert the id as its first.
    std::string Insert(const TableDef& table) const;  // binds the values
    std::string Replace(const TableDef& table) const; // binds the new values, the id and the old ones
    std::string Erase(const TableDef& table) const;   // binds the id and the old values
    std::string InsertRows(const TableDef& table, std::size_t rows) const; // binds their values and tells nobody

    std::string CreateTable(const TableDef& table) const;
    std::string CreateIndex(const TableDef& table, const Index& index) const;

    QString Qualified(const QString& table) const; // the table's name behind its schema's

private:
    std::string Told(std::size_t bound) const;

    QString m_schema;
    QString m_channel;
};

QString QuotedName(QString name);

// A column's declared type and back.
QString DeclaredType(const Field& field);
std::optional<Field> FieldOf(const QString& name, const QString& declaredType); // none of a type that is not ours
