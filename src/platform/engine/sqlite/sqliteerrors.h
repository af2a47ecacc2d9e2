// The library's exceptions as errors of the engine, with texts for a person.
#pragma once

#include "platform/runtime/runtimeerror.h"

#include <QString>

#include <SQLiteCpp/Exception.h>

enum class Doing
{
    Reading,
    Writing
};

bool IsDamage(const SQLite::Exception& error); // of the file, or that it is none of the library's

// File is the planner's name, as the texts show it.
RunTimeError RunTimeErrorOf(const SQLite::Exception& error, Doing doing, const QString& file);
