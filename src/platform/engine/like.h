// The criterion of a Find: [Field] LIKE "pattern". Shared by the stores, so that all of them find the same.
#pragma once

#include <QString>

struct Criterion
{
    QString Field;
    QString Pattern;
};

Criterion ParseCriterion(const QString& text); // 3077
