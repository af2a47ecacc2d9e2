// Checks at the start of commands. Each returns true after a message that says why the command is refused.
#pragma once

#include "settings/messages.h"

bool RefusesWithoutPlanner(const QString& text = messages::NoPlannerForEvents);
bool RefusesShared(const QString& subject); // subject begins the sentence: "Global alarm settings"
