// Message boxes by style number: buttons (0 Ok, 1 OkCancel, 2 AbortRetryIgnore, 3 YesNoCancel, 4 YesNo, 5 RetryCancel)
// + icon (16 critical, 32 question, 48 exclamation, 64 information) + default button (0 first, 256 second, 512 third).
#pragma once

#include <QString>

namespace msgbox {
inline constexpr int Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7;
inline constexpr int YesNoCancel = 3, YesNo = 4, RetryCancel = 5;
inline constexpr int Critical = 16, Question = 32, Exclamation = 48, Information = 64;
inline constexpr int DefaultButton2 = 256, DefaultButton3 = 512;
inline const QString HelpWizard = u"Orrelin Help Wizard"_s; // the usual title
} // namespace msgbox

// Shows a box over the active window and returns one of the seven answers. Esc and the close box return Cancel, or the
// harmless button if there is none (No for YesNo, Ok for Ok). An empty title is "Orrelin". secondText is below text,
// smaller. Timers keep running.
int MsgBox(const QString& text, int style = 0, const QString& title = QString(), const QString& secondText = QString());

namespace msgbox {
// A message with the usual title.
inline void Tell(const QString& text, int icon = Information, const QString& secondText = {})
{
    MsgBox(text, icon, HelpWizard, secondText);
}
} // namespace msgbox
