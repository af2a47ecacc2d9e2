// What must hold of the files that a child left, however it ended.
#pragma once

#include "faultycalls.h"
#include "scenes.h"

struct Answer
{
    faultycalls::Fault fault;
    bool isKept = false; // it has said so
    int calls = 0;
    QString text; // empty where the child was ended
};

// The planner, an older one and the settings, all made beforehand, for a scene to begin with.
void Prepare(const Scene& scene, const QString& root);

// As a failed test where something is lost.
void Check(const Scene& scene, const QString& root, const Answer& answer);
