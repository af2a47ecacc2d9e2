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
constexpr int HalfAMinute = 30000, TenSeconds = 10000; // milliseconds

struct ToolbarRow
{
    const char* key; // empty: a separator
    const char* tip;
};

constexpr ToolbarRow ToolbarRows[] = {
    {"new", "Create New Planner"},
    {"open", "Open An Existing Planner"},
    {"save", "Save Existing Planner"},
    {"", ""},
    {"cut", "Cut (or drag and drop with mouse)"},
    {"copy", "Copy (or drag and drop with mouse)"},
    {"paste", "Paste"},
    {"", ""},
    {"bold", "Bold"},
    {"italic", "Italic"},
    {"underline", "Underline"},
    {"strikethru", "StrikeThrough"},
    {"", ""},
    {"datediff", "Date Difference"},
    {"", ""},
};

QString Icon(const char* name)
{
    return u":/icons/%1.svg"_s.arg(QLatin1StringView(name));
}

Toolbar* MakeToolbar(QWidget* client)
{
    auto* bar = Named(new Toolbar(client), "tbTop");
    bar->setAccessibleName(u"Toolbar"_s);
    SetAccessibleRole(bar, QAccessible::ToolBar);
    for (const ToolbarRow& row : ToolbarRows) {
        const QString key = QString::fromLatin1(row.key);
        if (key.isEmpty()) {
            bar->AddSeparator();
        } else {
            bar->AddButton(key, QString::fromLatin1(row.tip), Icon(row.key));
            bar->Buttons(key).setEnabled(false); // until it is wired to its command
        }
    }
    return bar;
}

ORLCombo* AddCombo(Toolbar* bar, const char* name, const QString& tip)
{
    auto* combo = Named(new ORLCombo(bar), name);
    combo->hide();
    combo->setPalette(paper::OnPaper(combo->palette()));
    combo->setToolTip(tip);
    combo->setAccessibleName(tip);
    bar->AddControl(combo);
    return combo;
}

FormatBar MakeFormatBar(QWidget* client)
{
    Toolbar* bar = MakeToolbar(client);
    return {bar, AddCombo(bar, "orlcmbFontcolor", u"Font Color"_s), AddCombo(bar, "orlcmbFontsize", u"Font Size"_s),
            AddCombo(bar, "orlcmbFontname", u"Fonts"_s)};
}

PictureButton* MakePictureButton(const char* name, const char* raised, const char* pressed, QWidget* parent)
{
    return Named(new PictureButton({Icon(raised), Icon(pressed)}, 1, parent), name);
}

BottomPanel MakeBottomPanel(QWidget* client)
{
    constexpr QSize SpinSize(40, 36);
    auto* panel = Named(new SSPanel(client), "panelBottom");
    SetAccessibleRole(panel, QAccessible::Grouping); // of the title and the two buttons
    panel->hide();
    panel->SetPaper(paper::Band);
    panel->SetCaptionAlignment(SSPanel::CenterMiddle);
    BottomPanel bottom = {panel, MakePictureButton("imgLeftSpin", "left", "left", panel),
                          MakePictureButton("imgRightSpin", "right", "right", panel)};
    for (PictureButton* spin : {bottom.imgLeftSpin, bottom.imgRightSpin}) {
        spin->resize(SpinSize);
        spin->SetFramed(true);
    }
    return bottom;
}

struct PictureRow
{
    const char* name;
    const char* tips[2];
    const char* icons[2];
    const char* caption;
};

struct SidebarRow
{
    PictureButton* Sidebar::*button;
    PictureRow picture;
};

// From top to bottom. A view that is shown looks pressed, with a picture of its own colour.
constexpr SidebarRow SidebarRows[] = {
    {&Sidebar::picDay, {"picDay", {"Day View", "Day View"}, {"day", "day"}, "Day"}},
    {&Sidebar::picWeek, {"picWeek", {"Week View", "Week View"}, {"week", "week-pressed"}, "Week"}},
    {&Sidebar::picMonth, {"picMonth", {"Month View", "Month View"}, {"month", "month-pressed"}, "Month"}},
    {&Sidebar::picPrint, {"picPrint", {"Print", "Print"}, {"print", "print"}, "Print"}},
    {&Sidebar::picRecurse,
     {"picRecurse", {"Recurring Events", "Recurring Events"}, {"recurring", "recurring"}, "Recurring"}},
    {&Sidebar::picAlarm, {"picAlarm", {"Alarm Settings", "Alarm Settings"}, {"alarm", "alarm"}, "Alarm"}},
};
constexpr PictureRow RefreshPicture = {
    "picRefresh", {"Network Refresh", "Network Refresh"}, {"refresh", "refresh"}, ""};
constexpr PictureRow LockPicture = {"picLock", {"Network Lock", "Network Unlock"}, {"lock", "unlock"}, ""};

PictureButton* MakePicture(const PictureRow& row, QWidget* page)
{
    PictureButton* button = MakePictureButton(row.name, row.icons[0], row.icons[1], page);
    button->setText(QString::fromLatin1(row.caption));
    button->setEnabled(false); // until it is wired to its command
    for (int element = 0; element < 2; ++element)
        button->SetToolTip(element, QString::fromLatin1(row.tips[element]));
    return button;
}

Sidebar MakeSidebar(QWidget* client)
{
    Sidebar sidebar;
    sidebar.tabSidebar = new TabStrip(client);
    sidebar.tabSidebar->setObjectName(u"tabSidebar"_s);
    sidebar.tabSidebar->hide();
    sidebar.tabSidebar->AddTab(u"Sidebar"_s, u"Additional functions to manipulate calendar"_s);
    sidebar.tabSidebar->AddTab(u"Pictures"_s, u"Spice up your calendar with these pictures."_s);
    constexpr int DesignWidth = 112;
    sidebar.tabSidebar->resize(qMax(DesignWidth, sidebar.tabSidebar->sizeHint().width() + 1), 0);
    for (int page = 0; page < 2; ++page) {
        auto* frame = new QWidget(sidebar.tabSidebar);
        frame->setObjectName(u"fraSidebar(%1)"_s.arg(page));
        sidebar.fraSidebar[static_cast<std::size_t>(page)] = frame;
    }
    return sidebar;
}

// The sidebar is paper in any theme, so what stands on it is ink.
void InkText(QWidget* label)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, paper::Ink);
    label->setPalette(palette);
}

void FillPicturePage(Sidebar& sidebar)
{
    QWidget* page = sidebar.fraSidebar[1];
    auto* label = new QLabel(u"You can add new Icons into the picture bar."_s, page);
    label->setWordWrap(true);
    InkText(label);
    sidebar.lblPictures = label;
    sidebar.tbPictureBox = new PictureStrip(page);
    sidebar.tbPictureBox->setObjectName(u"tbPictureBox"_s);
    sidebar.tbPictureBox->setAccessibleName(u"Pictures"_s);
    sidebar.btnReloadIcons = new PressedByReturn<QPushButton>(u"Reload"_s, page);
    sidebar.btnReloadIcons->setObjectName(u"btnReloadIcons"_s);
    sidebar.btnReloadIcons->setPalette(paper::ButtonOnPaper());
    sidebar.btnReloadIcons->setToolTip(u"Reload the Picture list"_s);
    sidebar.btnReloadIcons->setEnabled(false); // until it is wired to its command
}

NetworkControls MakeNetworkControls(QWidget* client, QWidget* page)
{
    constexpr int OneSecond = 1000;
    NetworkControls network = {MakePicture(RefreshPicture, page), MakePicture(LockPicture, page),
                               new QLabel(u"Network"_s, page), new Timer(OneSecond, client),
                               new Timer(OneSecond, client)};
    network.lblNetwork->setObjectName(u"lblNetwork"_s);
    network.tmUnLock->setObjectName(u"tmUnLock"_s);
    network.tmAutoRefresh->setObjectName(u"tmAutoRefresh"_s);
    network.lblNetwork->setAlignment(Qt::AlignCenter);
    InkText(network.lblNetwork);
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
        PictureButton* button = MakePicture(row.picture, page);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
        column->addWidget(button);
        sidebar.*row.button = button;
    }
    column->addSpacing(8);
    column->addWidget(network.lblNetwork);
    auto* pair = new QHBoxLayout;
    pair->addWidget(network.picRefresh);
    pair->addWidget(network.picLock);
    column->addLayout(pair);
    column->addStretch(1);
}

// Follows the mouse and must never be in its way.
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
      tmMidnightRefresh(*new Timer(HalfAMinute, client)), tmAlarm(*new Timer(TenSeconds, client)), FontDialog(&window)
{
    tmMidnightRefresh.setObjectName(u"tmMidnightRefresh"_s);
    tmAlarm.setObjectName(u"tmAlarm"_s);
    FillCommandPage(sidebar, network);
    FillPicturePage(sidebar);
    // From the tabs to their page, then to the cells, and the spins last.
    QWidget::setTabOrder(sidebar.picAlarm, network.picRefresh);
    QWidget::setTabOrder(network.picRefresh, network.picLock);
    cells.SetTabBehind(bottom.imgLeftSpin, bottom.imgRightSpin);
}
