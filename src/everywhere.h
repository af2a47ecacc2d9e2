// Precompiled before every file: common headers and the literal suffixes u"text"_s and "text"_L1. A file still includes
// what it uses.
#pragma once

#include <QtWidgets/QtWidgets>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;
