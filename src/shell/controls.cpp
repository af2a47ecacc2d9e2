#include "shell/controls.h"

#include "platform/controls/orlcombo.h"
#include "platform/controls/paper.h"
#include "platform/controls/picturebutton.h"
#include "platform/controls/timer.h"
#include "platform/controls/toolbar.h"

#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

namespace {
struct ToolbarRow
{
    const char* key; // empty: a separator
    const char* tip;
    int placeholderWidth = 0; // of a combo that is laid over it
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
    {"cmbColor", "Font Color", 116},
    {"cmbFontSize", "Font Size", 64},
    {"cmbFontName", "Fonts", 176},
};

QString Icon(const char* name)
{
    return QStringLiteral(":/icons/%1.svg").arg(QLatin1StringView(name));
}

Toolbar* MakeToolbar(QWidget* client)
{
    auto* bar = new Toolbar(client);
    bar->setObjectName(QStringLiteral("tbTop"));
    for (const ToolbarRow& row : ToolbarRows) {
        const QString key = QString::fromLatin1(row.key);
        if (key.isEmpty()) {
            bar->AddSeparator();
        } else if (row.placeholderWidth > 0) {
            bar->AddPlaceholder(key, row.placeholderWidth);
        } else {
            bar->AddButton(key, QString::fromLatin1(row.tip), Icon(row.key));
        }
    }
    return bar;
}

ORLCombo* MakeCombo(Toolbar* bar, const char* name, const char* key)
{
    auto* combo = new ORLCombo(bar);
    combo->hide();
    combo->setObjectName(QString::fromLatin1(name));
    for (const ToolbarRow& row : ToolbarRows) {
        if (QLatin1StringView(row.key) != QLatin1StringView(key)) continue;
        combo->resize(row.placeholderWidth, combo->sizeHint().height());
        combo->setToolTip(QString::fromLatin1(row.tip));
        combo->setAccessibleName(QString::fromLatin1(row.tip));
    }
    return combo;
}

FormatBar MakeFormatBar(QWidget* client)
{
    Toolbar* bar = MakeToolbar(client);
    return {bar, MakeCombo(bar, "orlcmbFontcolor", "cmbColor"), MakeCombo(bar, "orlcmbFontsize", "cmbFontSize"),
            MakeCombo(bar, "orlcmbFontname", "cmbFontName")};
}

PictureButton* MakePictureButton(const char* name, const char* raised, const char* pressed, QWidget* parent)
{
    auto* button = new PictureButton(Icon(raised), Icon(pressed), parent);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

BottomPanel MakeBottomPanel(QWidget* client)
{
    constexpr QSize SpinSize(40, 36);
    auto* panel = new SSPanel(client);
    panel->setObjectName(QStringLiteral("panelBottom"));
    panel->hide();
    panel->SetPaper(paper::Band);
    panel->SetCaptionAlignment(SSPanel::CenterMiddle);
    BottomPanel bottom = {panel, MakePictureButton("imgLeftSpin", "left", "left", panel),
                          MakePictureButton("imgRightSpin", "right", "right", panel)};
    for (PictureButton* spin : {bottom.imgLeftSpin, bottom.imgRightSpin}) {
        spin->resize(SpinSize);
        spin->SetFramed(true);
        spin->SetVisible(0, true);
        spin->SetVisible(1, false);
    }
    return bottom;
}

// The workgroup's pictures have no bar to stand on yet; their visibility is the state of the day lock all the same.
NetworkControls MakeNetworkControls(QWidget* client)
{
    constexpr int OneSecond = 1000;
    auto* frame = new QWidget(client);
    frame->hide();
    NetworkControls network = {MakePictureButton("picRefresh", "refresh", "refresh", frame),
                               MakePictureButton("picLock", "lock", "unlock", frame),
                               new QLabel(QStringLiteral("Network"), frame), new Timer(OneSecond, client),
                               new Timer(OneSecond, client)};
    network.lblNetwork->setObjectName(QStringLiteral("lblNetwork"));
    for (PictureButton* button : {network.picRefresh, network.picLock}) {
        button->SetVisible(0, false);
        button->SetVisible(1, false);
    }
    return network;
}

QWidget* MakeClient(QMainWindow& window)
{
    auto* client = new QWidget;
    client->setObjectName(QStringLiteral("client"));
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
      bottom(MakeBottomPanel(client)), network(MakeNetworkControls(client)), FontDialog(&window)
{
}
