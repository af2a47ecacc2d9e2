// The steps of the program that change files, as a child process runs them.
#pragma once

#include <QString>

#include <functional>

// Where the planners lie, for the child and for the checks.
inline const QString Planner = u"/planner.mdb"_s, OldPlanner = u"/old.mdb"_s;
inline const QString Third = u"1999/3/3"_s, Fourth = u"1999/3/4"_s;
inline constexpr const char* TypedOnThird = "typed on the third ";
inline constexpr const char* TypedOnFourth = "typed on the fourth ";
inline constexpr const char* Keeps = "kept"; // the child prints this line once typed text is safe

struct Stage
{
    QString root;
    std::function<void()> Begin; // starts the faults; called when everything is ready

    QString Path(const QString& name) const { return root + name; }
};

struct Scene
{
    const char* name;
    QString (*Play)(const Stage& stage); // "done" or an error message
    bool types;                          // types on the third, and on the fourth if it may
    bool isQuick = false;                // opens no window
};

const QList<Scene>& Scenes();
