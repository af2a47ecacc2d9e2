// What commands ask before they begin. Each answers true after it has told the person why not.
#pragma once

#include "settings/messages.h"

bool RefusesWithoutPlanner(const QString& text = messages::NoPlannerForEvents);
bool RefusesShared(const QString& subject); // subject begins the sentence: "Global alarm settings"
