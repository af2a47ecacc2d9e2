// The planners on the card: those opened or created last, the newest first. The recent list has only what was opened,
// and never drops an entry by itself; the card's own list has both, and the person can take one off.
#pragma once

#include <QStringList>

QStringList CardPlanners();
void PutOnCard(const QString& path);
void TakeOffCard(const QString& path);
