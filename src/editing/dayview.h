// The day view: opens the current cell's note in a window with room around it and hands the result back to the cell. In
// a workgroup's planner it takes and gives back the day's lock by itself.
#pragma once

#include "notes/unsavednotes.h"

#include <QByteArray>
#include <QString>

class Cells;
class Foot;
class FontCommand;
class Journal;
class HeldDay;
struct NetworkControls;
class QMTDB;
class RichTextBox;
struct Sidebar;
class ViewMode;
class ZoomBoxForm;
struct RunTimeError;

class DayView
{
public:
    DayView(Cells& cells, const Sidebar& sidebar, const NetworkControls& network, Foot& foot, QMTDB& notes,
            HeldDay& heldDay, const ViewMode& viewMode, FontCommand& fontCommand, Journal& journal)
        : m_cells(cells), m_sidebar(sidebar), m_network(network), m_foot(foot), m_notes(notes), m_heldDay(heldDay),
          m_viewMode(viewMode), m_fontCommand(fontCommand), m_journal(journal)
    {
    }

    void subZoomView(); // returns when the window is closed and its text is taken over
    void panelDay_DblClick(int Index);
    // The foot tells of what Esc has dropped until the next undo would do something else.
    void EndNotice();
    void FollowFocus(int cell);

    // From outside, where the window is open: what stands in it goes into the cell of its day.
    void TakeTextAndClose();
    void TakeTextAtExit(); // in a workgroup's planner it is stored

    void AddTyped(UnsavedNotes& typed) const; // what stands in the open window and nowhere else

private:
    // The day that the window was opened for: by the time it closes another one may stand in its cell.
    struct Day
    {
        int cell = 0;
        QString key;
        bool wasLocked = false; // by this user's own hand before
    };

    int CellToOpen() const;
    bool MayOpen();
    void Show();
    bool Exec(ZoomBoxForm& form); // Ok
    void FollowResult(const ZoomBoxForm& form, bool accepted);
    void JoinWithTheirs();
    void TakeOver();
    void TakeText();
    void OfferDropped(const RichTextBox& dropped);
    void TakeTextOf(const ZoomBoxForm& form);
    void Unlock(bool cancelled);
    void KeepLocked(const RunTimeError& error);
    QString Heading() const;
    bool ShowsDay() const;

    Cells& m_cells;
    const Sidebar& m_sidebar;
    const NetworkControls& m_network;
    Foot& m_foot;
    QMTDB& m_notes;
    HeldDay& m_heldDay;
    const ViewMode& m_viewMode;
    FontCommand& m_fontCommand;
    Journal& m_journal;
    ZoomBoxForm* m_form = nullptr; // while the window is open
    Day m_day;
    QByteArray m_text; // of the day, as it is to go into the cell
    QByteArray m_base; // of a workgroup's day: what the file held as far as this screen knew when the window opened
    bool m_isEmpty = false;
    bool m_isExiting = false;
    bool m_tellsDropped = false; // in the foot
    bool m_taken = false;        // closed from outside, which has taken the text and given up the lock
};
