#include "hall/menus.h"

#include "platform/runtime/errortail.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace {
enum Kind
{
    Top,
    PopupTop,
    Entry,
    SubMenu,
    SubEntry,
    UncheckedSubEntry,
    CheckedSubEntry,
    HiddenEntry
};

struct MenuRow
{
    Kind kind;
    const char* name;
    const char* caption; // "-" is a separator
    const char* shortcut = "";
};

constexpr MenuRow Rows[] = {
    {Top, "mnuFile", "&File"},
    {Entry, "mnuNew", "&New Planner", "Ctrl+N"},
    {Entry, "mnuOpen", "&Open Planner", "Ctrl+O"},
    {Entry, "mnuSave", "&Save Planner", "Ctrl+S"},
    {Entry, "mnuHyphen", "-"},
    {Entry, "mnuCompact", "Compact Database"},
    {Entry, "mnuRepair", "Repair Database"},
    {Entry, "mnuHyphen1", "-"},
    {Entry, "mnuPageSetup", "P&age Setup..."},
    {Entry, "mnuPrintSetup", "P&rint Setup..."},
    {Entry, "mnuPrint", "&Print", "Ctrl+P"},
    {HiddenEntry, "mnuMRUHyphen", "-"},
    {HiddenEntry, "mnuMRU(0)", "Most Recently Used 1"},
    {HiddenEntry, "mnuMRU(1)", "Most Recently Used 2"},
    {HiddenEntry, "mnuMRU(2)", "Most Recently Used 3"},
    {HiddenEntry, "mnuMRU(3)", "Most Recently Used 4"},
    {Entry, "mnuFileHyphen1", "-"},
    {Entry, "mnuExit", "E&xit", "Ctrl+Q"},
    {Entry, "mnuFileHyphen2", "-"},
    {Entry, "mnuExport", "&Export..."},
    {Entry, "mnuImport", "&Import..."},
    {Top, "mnuEdit", "&Edit"},
    {Entry, "mnuCut", "Cu&t", "Ctrl+X"},
    {Entry, "mnuCopy", "&Copy", "Ctrl+C"},
    {Entry, "mnuPaste", "&Paste", "Ctrl+V"},
    {Entry, "mnuEditHyphen1", "-"},
    {Entry, "mnuRefresh", "Refresh (Network)", "Shift+F2"},
    {Entry, "mnuLockDay", "Lock/Unlock Day (Network)", "F2"},
    {Entry, "mnuEditHyphen2", "-"},
    {Entry, "mnuUndo", "&Undo\tCtrl+Z"}, // these keys belong to the text, so that any text box takes them
    {Entry, "mnuRedo", "&Redo\tCtrl+Shift+Z"},
    {Entry, "mnuSelectAll", "Select &All"},
    {Entry, "mnuEditHyphen3", "-"},
    {Entry, "mnuVersions", "&Earlier Versions..."},
    {Top, "mnuView", "&View"},
    {Entry, "mnuMonthView", "&Month View", "Ctrl+M"},
    {Entry, "mnuWeekView", "&Week View", "Ctrl+W"},
    {Entry, "mnuDayView", "&Day View", "Ctrl+D"},
    {Entry, "mnuViewHyphen1", "-"},
    {SubMenu, "mnuViewToolbar", "&Toolbar"},
    {CheckedSubEntry, "mnuViewTBVisible", "Visible"},
    {CheckedSubEntry, "mnuViewTBAlignTop", "Align Top"},
    {UncheckedSubEntry, "mnuViewTBAlignBottom", "Align Bottom"},
    {SubMenu, "mnuViewSidebar", "&Sidebar"},
    {CheckedSubEntry, "mnuViewSBVisible", "Visible"},
    {Top, "mnuEvents", "Events"},
    {Entry, "mnuNewAlarm", "&New Alarm"},
    {Entry, "mnuChangeAlarms", "&Browse/Edit Alarm"},
    {Entry, "mnuEventsHyphen1", "-"},
    {Entry, "mnuRecurse", "Recurring Events"},
    {Entry, "mnuEventsHyphen2", "-"},
    {Entry, "mnuFindWord", "Find &Word", "Ctrl+F"},
    {SubMenu, "mnuDateDiff", "Date Difference"},
    {UncheckedSubEntry, "mnuDateDiffShow", "Show"},
    {SubEntry, "mnuDateDiffCustomize", "Customize"},
    {Entry, "mnuEventsHyphen3", "-"},
    {Entry, "mnuFindAll", "&Find All Days", "Ctrl+Shift+F"},
    {Entry, "mnuEventsHyphen4", "-"},
    {Entry, "mnuComingAlarms", "&Coming Alarms..."},
    {Entry, "mnuMissedAlarms", "&Missed Alarms..."},
    {Entry, "mnuAlarmOptions", "Alarm &Options..."},
    {Top, "mnuFind", "&Goto"},
    {Entry, "mnuPrevWeek", "Previous Week", "Ctrl+PgUp"},
    {Entry, "mnuCurrentWeek", "Current Week", "F8"},
    {Entry, "mnuNextWeek", "Next Week", "Ctrl+PgDown"},
    {Entry, "mnuGotoHyphen1", "-"},
    {Entry, "mnuPrevMonth", "Previous Month", "Ctrl+PgUp"},
    {Entry, "mnuThisMonth", "Current Month", "F5"},
    {Entry, "mnuNextMonth", "Next Month", "Ctrl+PgDown"},
    {Entry, "mnuGotoHyphen2", "-"},
    {Entry, "mnuDateSearch", "Fast Search", "F3"},
    {Entry, "mnuGotoHyphen3", "-"},
    {Entry, "mnuDateSearchWeek", "Fast Search (Week)", "Shift+F3"},
    {Top, "mnuFormat", "Forma&t"},
    {Entry, "mnuBold", "Bold", "Ctrl+B"},
    {Entry, "mnuItalic", "Italic", "Ctrl+I"},
    {Entry, "mnuUnderline", "Underline", "Ctrl+U"},
    {Entry, "mnuStrikeThru", "Strikethrough", "Ctrl+T"},
    {Entry, "mnuFormatHyphen1", "-"},
    {Entry, "mnuColorSizeFonts", "Color, Size, Fonts", "Ctrl+A"},
    {Entry, "mnuFormatHyphen2", "-"},
    {Entry, "mnuLeftJustify", "Left Justify"},
    {Entry, "mnuCenterJustify", "Center Justify"},
    {Entry, "mnuRightJustify", "Right Justify"},
    {Top, "mnuOptions", "&Customize"},
    {Entry, "mnuInitialFont", "&Initial Font"},
    {Entry, "mnuCustomizeHyphen2", "-"},
    {Entry, "mnuNumberDlg", "&Daily Appearance"},
    {Entry, "mnuWeekAppearance", "&Weekly Appearance"},
    {Entry, "mnuMonthDisplay", "&Monthly Appearance"},
    {Entry, "mnuMonToSun", "D&ay Of Week Appearance"},
    {Entry, "mnuCustomizeHyphen3", "-"},
    {Entry, "mnuNetworkOptions", "Network Options"},
    {Entry, "mnuCustomizeHyphen4", "-"},
    {Entry, "mnuAutoload", "&StartUp Options"},
    {Entry, "mnuCustomizeHyphen5", "-"},
    {Entry, "mnuSpelling", "S&pelling..."},
    {Top, "mnuWallpaperTop", "&Wallpaper"},
    {Entry, "mnuSetWallpaper", "&Set Wallpaper", "Ctrl+L"},
    {Entry, "mnuClearWallpaper", "&Clear Wallpaper"},
    {Entry, "mnuUpdateWallpaper", "&Update Wallpaper (Network)"},
    {Entry, "mnuPrevWallpaper", "&Previous Wallpaper"},
    {Entry, "mnuWallpaperHyphen1", "-"},
    {Entry, "mnuWallpaperOption", "Wallpaper &Option"},
    {PopupTop, "mnuRightMouse", "RightMouse"},
    {Entry, "mnuCutR", "Cut"},
    {Entry, "mnuCopyR", "Copy"},
    {Entry, "mnuPasteR", "Paste"},
    {Entry, "mnuRMouseHyphen1", "-"},
    {Entry, "mnuBoldR", "Bold"},
    {Entry, "mnuItalicR", "Italic"},
    {Entry, "mnuUnderlineR", "Underline"},
    {Entry, "mnuStrikeThruR", "Strikethrough"},
    {Entry, "mnuRMouseHyphen2", "-"},
    {Entry, "mnuColorSizeFontsR", "Color, Size, Fonts"},
    {HiddenEntry, "mnuRMouseHyphen3", "-"},
    {HiddenEntry, "mnuOpenLinkR", "Open Link\tCtrl+Enter"}, // the key belongs to the text
    {Top, "mnuHelp", "&Help"},
    {Entry, "mnuContents", "Contents", "F1"},
    {Entry, "mnuHelpSearch", "&Search For Help On..."},
    {Entry, "mnuHelpHow", "&How To Use Help"},
    {Entry, "mnuHelpHyphen1", "-"},
    {Entry, "mnuAbout", "&About..."},
};

// A command that opens a window runs inside the menu's mouse event. When that event ends, the toolkit takes the mouse
// to be over the menu, and a button lit meanwhile would stay lit. The next mouse move lights it again if needed.
class Menu : public QMenu
{
public:
    using QMenu::QMenu;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        const QPointer<Menu> alive = this; // the command may end the program
        QMenu::mouseReleaseEvent(event);
        if (!alive || isVisible()) return;
        for (QWidget* widget : parentWidget()->window()->findChildren<QWidget*>()) {
            if (!widget->underMouse()) continue;
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(widget, &leave);
            widget->update();
        }
    }
};

// The entry stays disabled until MenuItem::OnClick gives it a command.
QAction* AddEntry(QMenu& menu, const MenuRow& row)
{
    const QString caption = QString::fromLatin1(row.caption);
    if (caption == u"-") return menu.addSeparator();
    QAction* action = menu.addAction(caption);
    action->setEnabled(false);
    if (*row.shortcut) action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
    action->setCheckable(row.kind == CheckedSubEntry || row.kind == UncheckedSubEntry);
    action->setChecked(row.kind == CheckedSubEntry);
    return action;
}
} // namespace

void MenuItem::SetCaption(const QString& caption)
{
    m_caption = caption;
    QString shown = caption;
    m_action->setText(shown.replace(u'&', u"&&"_s));
}

void MenuItem::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    m_action->setEnabled(m_enabled && m_click);
}

void MenuItem::OnClick(std::function<void()> click, QLatin1StringView literal)
{
    QObject::connect(m_action, &QAction::triggered, m_action, Guarded(literal, std::move(click)));
    m_click = true;
    SetEnabled(m_enabled);
}

Menus::Menus(QMenuBar& bar)
{
    QMenu* menu = nullptr;
    QMenu* subMenu = nullptr;
    for (const MenuRow& row : Rows) {
        const QString name = QString::fromLatin1(row.name);
        const QString caption = QString::fromLatin1(row.caption);
        QAction* action = nullptr;
        switch (row.kind) {
        case Top:
            action = bar.addMenu(menu = new Menu(caption, &bar));
            break;
        case PopupTop:
            action = (m_rightMouse = menu = new Menu(caption, &bar))->menuAction();
            break;
        case SubMenu:
            action = menu->addMenu(subMenu = new Menu(caption, &bar));
            break;
        case SubEntry:
        case UncheckedSubEntry:
        case CheckedSubEntry:
            action = AddEntry(*subMenu, row);
            break;
        case Entry:
        case HiddenEntry:
            action = AddEntry(*menu, row);
            break;
        }
        action->setObjectName(name);
        action->setVisible(row.kind != HiddenEntry);
        m_items.emplace(name, MenuItem(action));
    }
}

MenuItem& Menus::operator()(QLatin1StringView name)
{
    const auto found = m_items.find(QString(name));
    if (found == m_items.end()) {
        throw RunTimeError{errors::NoSuchElement, u"There is no menu entry '%1'"_s.arg(name)};
    }
    return found->second;
}

MenuItem& Menus::mnuMRU(int index)
{
    return m_items.at(u"mnuMRU(%1)"_s.arg(index));
}

const MenuItem* Menus::OfShortcut(const QKeySequence& key) const
{
    for (const auto& [name, item] : m_items) {
        if (!key.isEmpty() && item.Action()->shortcut() == key) return &item;
    }
    return nullptr;
}
