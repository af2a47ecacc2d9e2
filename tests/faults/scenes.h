// The steps of the program that change files, each as a child process does it.
#pragma once

#include <QString>

#include <functional>

// Where the planners lie, in the child and for who looks at what it left.
inline const QString Planner = u"/planner.mdb"_s, OldPlanner = u"/old.mdb"_s;
inline const QString Third = u"1999/3/3"_s, Fourth = u"1999/3/4"_s;
inline constexpr const char* TypedOnThird = "typed on the third ";
inline constexpr const char* TypedOnFourth = "typed on the fourth ";
inline constexpr const char* Keeps =
    "kept"; // the line that a child prints when what was typed may not be lost any more

struct Stage
{
    QString root;
    std::function<void()> Begin; // the faults; called when all is made ready

    QString Path(const QString& name) const { return root + name; }
};

struct Scene
{
    const char* name;
    QString (*Play)(const Stage& stage); // "done", or what was said instead
    bool types;                          // into the third, and into the fourth where it is free to
    bool isQuick = false;                // the engine alone
};

const QList<Scene>& Scenes();
