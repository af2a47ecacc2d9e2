// The program's main window with the ten years open, and beside it the bare window over the same file.
#pragma once

#include "painting.h"
#include "platform/richtext/richtextbox.h"
#include "rawplanner.h"
#include "shell/mainform.h"
#include "tenyears.h"

class PlannerWindow
{
public:
    PlannerWindow();

    void Trigger(const char* entry) const;
    RichTextBox& Box(int cell) const;
    void MoveMonth(); // to the next month and back in turns
    void ShowMonth();
    void ShowThisMonth();
    void ShowWeek();
    void MoveWeek();   // to the next week and back in turns
    void ResizeStep(); // narrower and wider in turns
    void ChangeAllNotes() const;
    void SaveIfChanged() const;
    void Focus(int cell) const;
    bool PaintedAll() { return m_paintings.Take() >= BoxCount && ShowsNotes(); }
    bool PaintedWeek() { return m_paintings.Take() >= WeekBoxCount; }
    bool PaintedOne() { return m_paintings.Take() >= 1; }

private:
    bool ShowsNotes() const;

    Mainform m_form;
    PaintCount m_paintings;
    bool m_ahead = false;
    bool m_inWeek = false;
    bool m_weekAhead = false;
    bool m_narrow = false;
};

class BarePlanner
{
public:
    explicit BarePlanner(const QString& path);

    void MoveMonth(bool saves);
    void ShowMonth();
    void ShowWeek();
    void MoveWeek();
    void ResizeStep();
    void Save();
    QTextEdit& Box(int cell) const { return *m_window.Boxes()[std::size_t(cell - 1)]; }
    void Focus(int cell) const;
    bool PaintedAll() { return m_paintings.Take() >= BoxCount; }
    bool PaintedWeek() { return m_paintings.Take() >= WeekBoxCount; }
    bool PaintedOne() { return m_paintings.Take() >= 1; }

private:
    struct Month
    {
        QStringList keys;
        std::vector<Note> notes;
        std::vector<QByteArray> texts;
    };
    static Month MakeMonth(YearMonth month);
    void ReadInto(const Month& month, int firstBox, int count, bool show);

    RawPlanner m_file;
    BareWindow m_window{QPoint(WindowSize.width() + 20, 0), BoxCount + WeekBoxCount};
    PaintCount m_paintings;
    std::array<Month, 2> m_months;
    std::size_t m_shown = 0;
    std::size_t m_week = 0;
    bool m_inWeek = false;
    bool m_narrow = false;
};
