#include "shell/controls.h"

#include "platform/controls/accessrole.h"
#include "platform/controls/named.h"
#include "platform/controls/orlcombo.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/picturestrip.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/timer.h"
#include "platform/controls/toolbar.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/look/paper.h"

#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int OneSecond = 1000, TenSeconds = 10000, HalfAMinute = 30000; // milliseconds

struct ToolbarRow
{
    QLatin1StringView key; // empty: a separator
    QLatin1StringView tip;
    const char* comboName = nullptr;
    ORLCombo* FormatBar::*combo = nullptr;
};

constexpr ToolbarRow ToolbarRows[] = {
    {"new"_L1, "Create New Planner"_L1},
    {"open"_L1, "Open An Existing Planner"_L1},
    {"save"_L1, "Save Existing Planner"_L1},
    {},
    {"cut"_L1, "Cut (or drag and drop with mouse)"_L1},
    {"copy"_L1, "Copy (or drag and drop with mouse)"_L1},
    {"paste"_L1, "Paste"_L1},
    {},
    {"bold"_L1, "Bold"_L1},
    {"italic"_L1, "Italic"_L1},
    {"underline"_L1, "Underline"_L1},
    {"strikethru"_L1, "StrikeThrough"_L1},
    {},
    {"datediff"_L1, "Date Difference"_L1},
    {},
    {"cmbColor"_L1, "Font Color"_L1, "orlcmbFontcolor", &FormatBar::orlcmbFontcolor},
    {"cmbFontSize"_L1, "Font Size"_L1, "orlcmbFontsize", &FormatBar::orlcmbFontsize},
    {"cmbFontName"_L1, "Fonts"_L1, "orlcmbFontname", &FormatBar::orlcmbFontname},
};

QString Icon(QLatin1StringView name)
{
    return u":/icons/%1.svg"_s.arg(name);
}

ORLCombo* AddCombo(Toolbar& bar, const ToolbarRow& row)
{
    auto* combo = Named(new ORLCombo(&bar), row.comboName);
    combo->hide();
    combo->setPalette(paper::OnPaper(combo->palette()));
    combo->setToolTip(row.tip);
    combo->setAccessibleName(row.tip);
    bar.AddControl(combo);
    return combo;
}

FormatBar MakeFormatBar(QWidget* client)
{
    FormatBar bar = {Named(new Toolbar(client), "tbTop")};
    bar.tbTop->setAccessibleName(u"Toolbar"_s);
    SetAccessibleRole(bar.tbTop, QAccessible::ToolBar);
    for (const ToolbarRow& row : ToolbarRows) {
        if (row.key.isEmpty()) {
            bar.tbTop->AddSeparator();
        } else if (row.combo) {
            bar.*row.combo = AddCombo(*bar.tbTop, row);
        } else {
            bar.tbTop->AddButton(row.key, row.tip, Icon(row.key));
        }
    }
    return bar;
}

PictureButton* MakeSpin(const char* name, QLatin1StringView icon, QWidget* panel)
{
    auto* spin = Named(new PictureButton({Icon(icon), Icon(icon)}, 1, panel), name);
    spin->resize(40, 36);
    spin->SetFramed(true);
    return spin;
}

BottomPanel MakeBottomPanel(QWidget* client)
{
    auto* panel = Named(new SSPanel(client), "panelBottom");
    SetAccessibleRole(panel, QAccessible::Grouping); // for the title and the two buttons
    panel->hide();
    panel->SetPaper(paper::Band);
    panel->SetCaptionAlignment(SSPanel::CenterMiddle);
    return {panel, MakeSpin("imgLeftSpin", "left"_L1, panel), MakeSpin("imgRightSpin", "right"_L1, panel)};
}

struct PictureRow
{
    const char* name;
    QLatin1StringView caption;
    QLatin1StringView tip;
    QLatin1StringView icon;
    QLatin1StringView pressedIcon = icon;
    QLatin1StringView pressedTip = tip;
};

struct SidebarRow
{
    PictureButton* Sidebar::*button;
    PictureRow picture;
};

// From top to bottom. The shown view's button looks pressed and has a picture of its own.
constexpr SidebarRow SidebarRows[] = {
    {&Sidebar::picDay, {"picDay", "Day"_L1, "Day View"_L1, "day"_L1}},
    {&Sidebar::picWeek, {"picWeek", "Week"_L1, "Week View"_L1, "week"_L1, "week-pressed"_L1}},
    {&Sidebar::picMonth, {"picMonth", "Month"_L1, "Month View"_L1, "month"_L1, "month-pressed"_L1}},
    {&Sidebar::picPrint, {"picPrint", "Print"_L1, "Print"_L1, "print"_L1}},
    {&Sidebar::picRecurse, {"picRecurse", "Recurring"_L1, "Recurring Events"_L1, "recurring"_L1}},
    {&Sidebar::picAlarm, {"picAlarm", "Alarm"_L1, "Alarm Settings"_L1, "alarm"_L1}},
};
constexpr PictureRow RefreshPicture = {"picRefresh", ""_L1, "Network Refresh"_L1, "refresh"_L1};
constexpr PictureRow LockPicture = {"picLock", ""_L1, "Network Lock"_L1, "lock"_L1, "unlock"_L1, "Network Unlock"_L1};

PictureButton* MakePicture(const PictureRow& row, QWidget* page)
{
    auto* button = Named(new PictureButton({Icon(row.icon), Icon(row.pressedIcon)}, 1, page), row.name);
    button->setText(row.caption);
    button->SetToolTip(0, row.tip);
    button->SetToolTip(1, row.pressedTip);
    return button;
}

// The sidebar has paper colour in any theme, so its text is ink.
QLabel* MakeInkLabel(const QString& text, QWidget* page)
{
    auto* label = new QLabel(text, page);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, paper::Ink);
    label->setPalette(palette);
    return label;
}

Sidebar MakeSidebar(QWidget* client)
{
    constexpr int DesignWidth = 112;
    Sidebar sidebar;
    auto* tabs = sidebar.tabSidebar = Named(new TabStrip(client), "tabSidebar");
    tabs->hide();
    tabs->AddTab(u"Sidebar"_s, u"Additional functions to manipulate calendar"_s);
    tabs->AddTab(u"Pictures"_s, u"Spice up your calendar with these pictures."_s);
    tabs->resize(qMax(DesignWidth, tabs->sizeHint().width() + 1), 0);
    sidebar.fraSidebar = {Named(new QWidget(tabs), "fraSidebar(0)"), Named(new QWidget(tabs), "fraSidebar(1)")};
    return sidebar;
}

void FillPicturePage(Sidebar& sidebar)
{
    QWidget* page = sidebar.fraSidebar[1];
    auto* label = MakeInkLabel(u"You can add new Icons into the picture bar."_s, page);
    label->setWordWrap(true);
    sidebar.lblPictures = label;
    sidebar.tbPictureBox = Named(new PictureStrip(page), "tbPictureBox");
    sidebar.tbPictureBox->setAccessibleName(u"Pictures"_s);
    sidebar.btnReloadIcons = Named(new PressedByReturn<QPushButton>(u"Reload"_s, page), "btnReloadIcons");
    sidebar.btnReloadIcons->setPalette(paper::ButtonOnPaper());
    sidebar.btnReloadIcons->setToolTip(u"Reload the Picture list"_s);
}

NetworkControls MakeNetworkControls(QWidget* client, QWidget* page)
{
    NetworkControls network = {MakePicture(RefreshPicture, page), MakePicture(LockPicture, page),
                               Named(MakeInkLabel(u"Network"_s, page), "lblNetwork"),
                               Named(new Timer(OneSecond, client), "tmUnLock"),
                               Named(new Timer(OneSecond, client), "tmAutoRefresh")};
    network.lblNetwork->setAlignment(Qt::AlignCenter);
    for (PictureButton* button : {network.picRefresh, network.picLock})
        button->ShowElement(PictureButton::NoElement);
    return network;
}

void FillCommandPage(Sidebar& sidebar, const NetworkControls& network)
{
    QWidget* page = sidebar.fraSidebar[0];
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(8, 4, 8, 4);
    column->setSpacing(2);
    for (const SidebarRow& row : SidebarRows) {
        PictureButton* button = sidebar.*row.button = MakePicture(row.picture, page);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
        column->addWidget(button);
    }
    column->addSpacing(8);
    column->addWidget(network.lblNetwork);
    auto* pair = new QHBoxLayout;
    pair->addWidget(network.picRefresh);
    pair->addWidget(network.picLock);
    column->addLayout(pair);
    column->addStretch(1);
}

// The label follows the mouse and must not catch its events.
QLabel* MakeDateDiffLabel(QWidget* client)
{
    auto* label = Named(new QLabel(u"Day 365"_s, client), "lblDateDiff");
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setAlignment(Qt::AlignCenter);
    label->setAutoFillBackground(true);
    label->setMargin(3);
    label->hide();
    return label;
}

QWidget* MakeClient(QMainWindow& window)
{
    auto* client = Named(new QWidget, "client");
    client->setAccessibleName(u"Calendar"_s);
    SetAccessibleRole(client, QAccessible::Grouping);
    QPalette palette = client->palette();
    palette.setColor(QPalette::Window, paper::Band);
    client->setPalette(palette);
    client->setAutoFillBackground(true);
    window.setCentralWidget(client);
    return client;
}
} // namespace

Controls::Controls(QMainWindow& window)
    : client(MakeClient(window)), menus(*window.menuBar()), cells(*new Cells(client)), bar(MakeFormatBar(client)),
      sidebar(MakeSidebar(client)), bottom(MakeBottomPanel(client)),
      network(MakeNetworkControls(client, sidebar.fraSidebar[0])), lblDateDiff(MakeDateDiffLabel(client)),
      card(*Named(new StartCard(client), "startCard")),
      tmMidnightRefresh(*Named(new Timer(HalfAMinute, client), "tmMidnightRefresh")),
      tmAlarm(*Named(new Timer(TenSeconds, client), "tmAlarm")), FontDialog(&window)
{
    FillCommandPage(sidebar, network);
    FillPicturePage(sidebar);
    // Tab order: tabs, their page, card, cells, spins.
    QWidget::setTabOrder(sidebar.picAlarm, network.picRefresh);
    QWidget::setTabOrder(network.picRefresh, network.picLock);
    QWidget::setTabOrder(sidebar.btnReloadIcons, &card);
    cells.SetTabBehind(bottom.imgLeftSpin, bottom.imgRightSpin);
}
