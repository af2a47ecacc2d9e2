// Whether the day view is open, and the ways to take its text and close it from outside. The window knows; those below
// it ask through this.
#pragma once

class DayViewPort
{
public:
    virtual bool IsOpen() const = 0;
    virtual void TakeText() = 0; // as it stands, into the cell of its day
    virtual void Close() = 0;    // without another look at the text; what is to be kept has been taken

protected:
    ~DayViewPort() = default;
};
