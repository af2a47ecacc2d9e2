// The kinds of files that a planner can be, one row each: how a file is recognised, and what can be done with it.
#pragma once

#include "platform/engine/repairreport.h"
#include "platform/engine/tabledef.h"

#include <QByteArrayView>

#include <memory>

class Store;

// Meaning and errors of the functions as those of DBEngine. What a kind cannot do is null.
struct StoreKind
{
    bool (*Recognise)(QByteArrayView head);
    const char16_t* Refusal; // says of '%1' why something cannot be done with it
    std::shared_ptr<Store> (*Open)(const QString& path, bool exclusive);
    void (*Delete)(const QString& path);
    std::shared_ptr<void> (*Claim)(const QString& path);
    QStringList (*Compact)(const QString& from, const QString& to, const std::vector<TableDef>& expected);
    QString (*Replace)(const QString& scratch, const QString& target);
    RepairReport (*Repair)(const QString& path, const std::vector<TableDef>& tables);
    QString (*LinkedAddress)(const QString& path);
    bool (*FindsPlanner)(const QString& path, const std::vector<TableDef>& tables); // in what Open refuses
};

// By the file's first bytes, whatever its name. What nobody recognises counts as a damaged planner in a file, whose
// functions tell what is wrong with it. 3024.
const StoreKind& KindOf(const QString& path);

[[noreturn]] void RaiseNotSupported(const StoreKind& kind, const QString& path);

// The function of the path's kind. 3024; 3251 if the kind has none.
template <typename Function>
Function OfKind(const QString& path, Function StoreKind::*function)
{
    const StoreKind& kind = KindOf(path);
    if (!(kind.*function)) RaiseNotSupported(kind, path);
    return kind.*function;
}
