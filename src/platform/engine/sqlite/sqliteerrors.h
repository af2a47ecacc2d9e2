// Converts the library's exceptions to errors of the engine, with texts for a person.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QString>

#include <SQLiteCpp/Exception.h>

enum class Doing
{
    Reading,
    Writing
};

bool IsBusy(const SQLite::Exception& error);   // others hold the file
bool IsDamage(const SQLite::Exception& error); // the file is damaged, or no database

// File is the planner's name for the texts.
RunTimeError RunTimeErrorOf(const SQLite::Exception& error, Doing doing, const QString& file);
