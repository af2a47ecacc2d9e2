// The dictionaries that the settings name.
#pragma once

#include "platform/spelling/dictionary.h"

#include <deque>

QStringList ChosenNames(const std::vector<DictionaryFiles>& installed); // also of dictionaries that are gone
std::deque<DictionaryFiles> ChosenDictionaries();                       // installed ones
