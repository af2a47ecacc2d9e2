// The library's exceptions as errors of the engine, with texts for a person.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QString>

#include <pqxx/except>

// Name is the planner's, as the texts show it.
RunTimeError RunTimeErrorOf(const pqxx::sql_error& error, bool writing, const QString& name);
RunTimeError RolledBackError(bool writing, const QString& name); // two writers were in each other's way
RunTimeError BrokenConnectionError(const QString& name, const char* detail = "");
RunTimeError SenselessAnswerError();

// Whether the error says that the session is over, though the line may still stand.
bool EndsSession(const pqxx::sql_error& error);
