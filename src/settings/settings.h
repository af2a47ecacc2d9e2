// Every setting of PLANNER.INI: section, key and default. A routine reads a setting when it needs it, and a dialog
// writes its own on OK, so the next read sees the change. Only the bars and the workgroup timers keep copies. Where two
// readers use different defaults, both are listed.
#pragma once

#include <QString>

#include <cstdint>
#include <iterator>

struct IntSetting
{
    QStringView section;
    QStringView key;
    int fallback;
};

struct TextSetting
{
    QStringView section;
    QStringView key;
    QStringView fallback;
    int size; // buffer size: at most size - 1 characters are returned
};

int Read(const IntSetting& setting);
QString Read(const TextSetting& setting);
QString Read(const TextSetting& setting, const QString& computedFallback);
void Write(const IntSetting& setting, int value);
void Write(const TextSetting& setting, const QString& value);
void WriteText(const IntSetting& setting, const QString& text); // stored literally

// Converts a delay in minutes; it is clamped to what the counters hold.
std::int32_t DelaySeconds(double minutes);

// The look of one kind of cell or heading, in a section each. Colours are "&H", hexadecimal digits, "&"; red is the low
// byte.
struct StyleDefaults
{
    QStringView section;
    int bold;
    int size; // points
    int italic;
    QStringView color;
};

struct PanelStyle
{
    QString fontName;
    bool bold;
    int size;
    bool italic;
    std::uint32_t color; // blue, green, red from high to low
};

PanelStyle ReadStyle(const StyleDefaults& defaults);
PanelStyle DefaultStyle(const StyleDefaults& defaults); // as read from a file without the section
// yes is the text of a set flag. Writers differ in it; every reader takes it for true.
void WriteStyle(QStringView section, const PanelStyle& style, QStringView yes);

namespace settings {
inline constexpr QStringView PlannerIni = u"PLANNER.INI";
inline constexpr int PathSize = 1024;

// Newest first.
inline constexpr TextSetting MRU[] = {
    {u"MRU", u"MRU1", u"", PathSize},
    {u"MRU", u"MRU2", u"", PathSize},
    {u"MRU", u"MRU3", u"", PathSize},
    {u"MRU", u"MRU4", u"", PathSize},
};
inline constexpr int RecentPlanners = std::size(MRU);

// The planners on the card: opened or created, the newest first.
inline constexpr TextSetting OnCard[] = {
    {u"CARD", u"PLANNER1", u"", PathSize}, {u"CARD", u"PLANNER2", u"", PathSize}, {u"CARD", u"PLANNER3", u"", PathSize},
    {u"CARD", u"PLANNER4", u"", PathSize}, {u"CARD", u"PLANNER5", u"", PathSize},
};

inline constexpr IntSetting AllAlarms = {u"ALARMS", u"ALL", 0}; // of a minute, not the first alone
inline constexpr IntSetting ListMissed = {u"ALARMS", u"MISSED", 0};
inline constexpr IntSetting NotifyOfAlarms = {u"ALARMS", u"NOTIFY", 0};
inline constexpr IntSetting RingInTray = {u"ALARMS", u"TRAY", 0};                      // while the window is closed
inline constexpr TextSetting FollowedPlanner = {u"ALARMS", u"PLANNER", u"", PathSize}; // by the clock in the tray
inline constexpr IntSetting FollowedShared = {u"ALARMS", u"WORKGROUP", 0};
inline constexpr IntSetting RepeatTune = {u"ALARMS", u"REPEAT", 0};
inline constexpr IntSetting TuneVolume = {u"ALARMS", u"VOLUME", 100}; // percent

inline constexpr IntSetting Spelling = {u"SPELLING", u"CHECK", 1};
// Names of dictionaries with commas between; by default that of the locale.
inline constexpr TextSetting Dictionaries = {u"SPELLING", u"DICTIONARIES", u"", PathSize};

inline constexpr TextSetting LastExport = {u"EXPORT", u"FORMAT", u"ics", 8}; // its suffix

inline constexpr IntSetting LoadCondition = {u"QMT2LOAD", u"LOAD CONDITION", 0};
inline constexpr IntSetting LoadPathSize = {u"QMT2LOAD", u"PATHSIZE", 0};
inline constexpr IntSetting LoadTitleSize = {u"QMT2LOAD", u"TITLESIZE", 0};
inline constexpr TextSetting LoadFilePath = {u"QMT2LOAD", u"FILEPATH", u"", PathSize};
inline constexpr TextSetting LoadFileTitle = {u"QMT2LOAD", u"FILETITLE", u"", PathSize};
inline constexpr IntSetting LoadWorkgroup = {u"QMT2LOAD", u"WORKGROUP", 0};

inline constexpr IntSetting ViewPref = {u"VIEW", u"VIEWPREF", 3};
inline constexpr IntSetting ViewPrefInDialog = {u"VIEW", u"VIEWPREF", 2};
inline constexpr IntSetting Minimized = {u"VIEW", u"MINIMIZED", 0};

// How large each view shows its notes, in percent.
inline constexpr IntSetting DayZoom = {u"VIEW", u"DAYZOOM", 100};
inline constexpr IntSetting WeekZoom = {u"VIEW", u"WEEKZOOM", 100};
inline constexpr IntSetting MonthZoom = {u"VIEW", u"MONTHZOOM", 100};

inline constexpr IntSetting AutoUnLock = {u"Network Options", u"AutoUnLock", 0};
inline constexpr IntSetting UnlockDelay = {u"Network Options", u"UnlockDelay", 5}; // minutes
inline constexpr IntSetting AutoRefresh = {u"Network Options", u"AutoRefresh", 0};
inline constexpr IntSetting RefreshDelay = {u"Network Options", u"RefreshDelay", 5}; // minutes

inline constexpr QStringView KnownServers = u"Known Servers"; // one key per server; 1: connecting is allowed

inline constexpr StyleDefaults MemoPanel = {u"MEMO PANEL", -1, 8, 0, u""};
inline constexpr StyleDefaults DailyPanel = {u"DAILY PANEL", -1, 8, 0, u""};
inline constexpr StyleDefaults TodayPanel = {u"TODAY PANEL", -1, 8, 0, u"&HFF&"};
inline constexpr StyleDefaults PastDatePanel = {u"PASTDATE PANEL", 0, 10, 0, u"&H808080"};
inline constexpr StyleDefaults WeekMemo = {u"WEEKMEMO", -1, 12, 0, u""};
inline constexpr StyleDefaults WeekDaily = {u"WEEKDAILY", -1, 12, 0, u""};
inline constexpr StyleDefaults WeekToday = {u"WEEKTODAY", -1, 12, 0, u"&HFF&"};
inline constexpr StyleDefaults WeekPastDate = {u"WEEKPASTDATE", 0, 10, 0, u"&H808080"};
inline constexpr StyleDefaults DisplayMonth = {u"DISPLAY MONTH", 1, 12, 0, u""};
// Each heading's section is named by its caption.
inline constexpr StyleDefaults DayOfWeek = {u"", -1, 16, -1, u""};

inline constexpr IntSetting PastDateStrikeThru = {u"PASTDATE PANEL", u"FONTSTRIKETHRU", -1};
inline constexpr IntSetting WeekPastDateStrikeThru = {u"WEEKPASTDATE", u"FONTSTRIKETHRU", -1};
inline constexpr IntSetting DailyFont3D = {u"DAILY PANEL", u"FONT3D", 2};
inline constexpr IntSetting WeekDailyFont3D = {u"WEEKDAILY", u"FONT3D", 2};
inline constexpr IntSetting DayOfWeekFont3D = {u"DOW FONT", u"FONT3D", 2};
inline constexpr IntSetting DisplayMonthFont3D = {u"DISPLAY MONTH", u"FONT3D", 4};

inline constexpr TextSetting DefaultFontName = {u"DEFAULT FONTS", u"FONTNAME", u"Arial", 127};
inline constexpr IntSetting DefaultFontSize = {u"DEFAULT FONTS", u"FONTSIZE", 8};
inline constexpr IntSetting DefaultBold = {u"DEFAULT FONTS", u"BOLD", 0};
inline constexpr IntSetting DefaultItalic = {u"DEFAULT FONTS", u"ITALIC", 0};
inline constexpr IntSetting DefaultUnderline = {u"DEFAULT FONTS", u"UNDERLINE", 0};
inline constexpr IntSetting DefaultStrikeThrough = {u"DEFAULT FONTS", u"STRIKETHROUGH", 0};
inline constexpr TextSetting DefaultFontColor = {u"DEFAULT FONTS", u"FONTCOLOR", u"0", 127};

// In twips. Left and Top have a computed default.
inline constexpr IntSetting ZoomLeft = {u"Zoombox", u"Left", 0};
inline constexpr IntSetting ZoomTop = {u"Zoombox", u"Top", 0};
inline constexpr IntSetting ZoomWidth = {u"Zoombox", u"Width", 6165};
inline constexpr IntSetting ZoomHeight = {u"Zoombox", u"Height", 4665};

inline constexpr IntSetting VersionsWidth = {u"VersionsForm", u"Width", 12000};
inline constexpr IntSetting VersionsHeight = {u"VersionsForm", u"Height", 6600};

inline constexpr IntSetting FindWordLeft = {u"FindWordForm", u"Left", 100};
inline constexpr IntSetting FindWordTop = {u"FindWordForm", u"Top", 100};
inline constexpr IntSetting FindAllDays = {u"FindWordForm", u"AllDays", 0}; // the list is unfolded
inline constexpr IntSetting FindWordWidth = {u"FindWordForm", u"Width", 9600};
inline constexpr IntSetting FindWordHeight = {u"FindWordForm", u"Height", 7200};

// In twips. The default is the work area, slightly reduced.
inline constexpr TextSetting MainLeft = {u"Mainform Dimension", u"Left", u"", 32};
inline constexpr TextSetting MainTop = {u"Mainform Dimension", u"Top", u"", 32};
inline constexpr TextSetting MainRight = {u"Mainform Dimension", u"Right", u"", 32};
inline constexpr TextSetting MainBottom = {u"Mainform Dimension", u"Bottom", u"", 32};
inline constexpr IntSetting ToolbarAlignment = {u"Mainform Toolbar", u"Alignment", 1};
inline constexpr IntSetting ToolbarVisible = {u"Mainform Toolbar", u"Visible", -1};
inline constexpr IntSetting SidebarVisible = {u"Mainform Sidebar", u"Visible", -1};

inline constexpr IntSetting WallpaperSize = {u"WallPaper", u"WallpaperSize", 0};
inline constexpr IntSetting WallpaperAutoupdate = {u"WallPaper", u"Autoupdate", 0};
inline constexpr TextSetting PreviousWallPaper = {u"WallPaper", u"PreviousWallPaper", u"(None)", PathSize};
inline constexpr IntSetting PreviousTileStyle = {u"WallPaper", u"PreviousTileStyle", 0};
inline constexpr IntSetting PreviousWallpaperStyle = {u"WallPaper", u"PreviousWallpaperStyle", 0};

inline constexpr TextSetting DateDiff = {u"Date Difference", u"DateDiff", u"",
                                         11}; // default: 01/01/ and the shown year
inline constexpr IntSetting DateDiffMethod = {u"Date Difference", u"Calculation Method", 0};
inline constexpr TextSetting DateDiffColor = {u"Date Difference", u"Label Color", u"&H0080FFFF&", 80};

inline constexpr TextSetting PageHeaderFont = {u"PAGESETUP", u"HEADERFONT", u"Arial", 40};
inline constexpr IntSetting PageHeaderBold = {u"PAGESETUP", u"HEADERBOLD", -1};
inline constexpr IntSetting PageHeaderItalic = {u"PAGESETUP", u"HEADERITALIC", 0};
inline constexpr TextSetting PageHeaderSize = {u"PAGESETUP", u"HEADERSIZE", u"12", 20}; // points, also fractions
inline constexpr TextSetting PageHeaderColor = {u"PAGESETUP", u"HEADERCOLOR", u"", 10};
inline constexpr TextSetting PageHeader = {u"PAGESETUP", u"HEADER", u"", PathSize};
// Margins in inches; the default is 1, the locale's decimal separator and 00.
inline constexpr TextSetting PageLeft = {u"PAGESETUP", u"LEFT", u"", 32};
inline constexpr TextSetting PageTop = {u"PAGESETUP", u"TOP", u"", 32};
inline constexpr TextSetting PageRight = {u"PAGESETUP", u"RIGHT", u"", 32};
inline constexpr TextSetting PageBottom = {u"PAGESETUP", u"BOTTOM", u"", 32};
} // namespace settings
