// The day view: edits the current cell's note in a window of its own and puts the result back into the cell. In a
// workgroup's planner it takes and releases the day's lock.
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

    void subZoomView(); // returns when the window is closed and its text is stored in the cell
    void panelDay_DblClick(int Index);
    int CellToOpen() const; // of the day that a command without a chosen day means; 0 for none
    // Ends the foot's notice about text dropped by Esc, once undo would no longer bring that text back.
    void EndNotice();
    void FollowFocus(int cell);

    // Called by other classes while the window is open: its text goes into the cell of its day.
    void TakeTextAndClose();
    void TakeTextAtExit(); // also stores it in a workgroup's planner

    void AddTyped(UnsavedNotes& typed) const; // the text of the open window, if it was changed

private:
    // The day that the window was opened for. The cell may show another day when it closes.
    struct Day
    {
        int cell = 0;
        QString key;
        bool wasLocked = false; // by this user, by hand
    };

    bool MayOpen();
    void Show();
    bool Exec(ZoomBoxForm& form); // true: OK
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
    QByteArray m_text; // the text that goes into the cell
    QByteArray m_base; // in a workgroup's planner: the stored text that this edit started from
    bool m_isEmpty = false;
    bool m_isExiting = false;
    bool m_tellsDropped = false; // the foot shows the notice
    bool m_taken = false;        // closed from outside: text and lock are already dealt with
};
