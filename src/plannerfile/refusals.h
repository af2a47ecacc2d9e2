// What commands on events ask before they begin. Each answers true after it has told the person why not.
#pragma once

#include <QString>

bool RefusesWithoutPlanner();
bool RefusesShared(const QString& subject); // subject begins the sentence: "Global alarm settings"
