// Stands before every file of the tree, precompiled: what nearly all of them read anyway, and the short forms of
// literals, u"text"_s and "text"_L1. A file still includes what it uses.
#pragma once

#include <QtWidgets/QtWidgets>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;
