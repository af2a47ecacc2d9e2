// Checks the files that a child process left, however it ended.
#pragma once

#include "faultycalls.h"
#include "scenes.h"

struct Answer
{
    faultycalls::Fault fault;
    bool isKept = false; // the child printed Keeps
    int calls = 0;
    QByteArrayList syncs = {}; // the numbers of the calls that sync
    QString text = {};         // empty if the child was killed
};

// Copies the planner, an older one and the settings of the scene's start.
void Prepare(const Scene& scene, const QString& root);

// Fails the test if something is lost.
void Check(const Scene& scene, const QString& root, const Answer& answer);
