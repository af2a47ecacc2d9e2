#include "editing/zoomboxform.h"

#include "editing/defaultfont.h"
#include "editing/fontcommand.h"
#include "editing/notemenu.h"
#include "editing/notezoom.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/notepanel.h"
#include "platform/controls/softtext.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/desktop/twips.h"
#include "platform/desktop/windowplace.h"
#include "platform/profile/profile.h"
#include "platform/richtext/richtextbox.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {
constexpr QLatin1StringView LoadLiteral(" in ZoomBoxForm, Form_Load");

int Stored(IntSetting setting, int computedPixels)
{
    setting.fallback = ToTwips(computedPixels);
    return ToPixels(Read(setting));
}
} // namespace

ZoomBoxForm::ZoomBoxForm(QWidget* owner, const QString& heading, const QByteArray& rtf, const QRect& place,
                         FontCommand& fontCommand)
    : QDialog(owner), m_fontCommand(fontCommand)
{
    setObjectName(u"ZoomBoxForm"_s);
    setWindowTitle(u"Zoom View"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    column->addWidget(MakeFrame(heading), 1);
    column->addLayout(MakeFoot());
    AddNoteMenu(*m_tbZoom, "ZoomBoxForm");
    setMinimumSize(SmallestZoomBox.expandedTo(minimumSizeHint()));
    resize(place.size());
    move(place.topLeft());
    ShowZoom(ReadZoom(settings::DayZoom));
    connect(new ZoomKeys(*this), &ZoomKeys::Stepped, this, Guarded(" in ZoomBoxForm, ShowZoom"_L1, [this](int steps) {
                Q_EMIT SignOfLife();
                ShowZoom(StepZoom(settings::DayZoom, steps));
            }));
    m_tbZoom->SetTextRTF(rtf);
    GiveDefaultFont(*m_tbZoom, DefaultStyles::None, LoadLiteral);
    m_tbZoom->setFocus();
}

QRect ZoomBoxForm::StoredPlace(const QWidget& heading)
{
    const QRect stored(Stored(settings::ZoomLeft, heading.screen()->size().width() / 8),
                       Stored(settings::ZoomTop, heading.y() + 2 * heading.height()),
                       ToPixels(Read(settings::ZoomWidth)), ToPixels(Read(settings::ZoomHeight)));
    return ReachablePlace(stored, SmallestZoomBox);
}

void ZoomBoxForm::StorePlace() const
{
    const ProfileBatch oneReplacement(settings::PlannerIni.toString());
    if (WindowsKnowTheirPlace()) {
        Write(settings::ZoomLeft, ToTwips(x()));
        Write(settings::ZoomTop, ToTwips(y()));
    }
    Write(settings::ZoomWidth, ToTwips(width()));
    Write(settings::ZoomHeight, ToTwips(height()));
}

QWidget* ZoomBoxForm::MakeFrame(const QString& heading)
{
    auto* frame = Named(new DialogPart(heading), "frZoom");
    m_tbZoom = Named(new RichTextBox, "tbZoom");
    m_tbZoom->setAccessibleName(heading);
    m_tbZoom->installEventFilter(this);
    connect(m_tbZoom, &RichTextBox::Change, this, &ZoomBoxForm::SignOfLife);
    SSPanel* panel = MakeNotePanel(m_tbZoom);
    panel->setObjectName(u"panelZoom"_s);
    auto* frameLayout = new QVBoxLayout(frame);
    frameLayout->addWidget(panel);
    return frame;
}

QLayout* ZoomBoxForm::MakeFoot()
{
    auto* lblHint = Named(new QLabel(u"Hint: Use right mouse button to access common functions"_s), "lblHint");
    lblHint->setWordWrap(true);
    SoftenText(*lblHint);
    m_lblZoom = Named(new QLabel, "lblZoom");
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Rhythm);
    buttons->addWidget(m_lblZoom); // beside the hint it would leave that no room for one line
    buttons->addStretch(1);
    const auto add = [&](const char* name, const char* caption, const char* literal, void (ZoomBoxForm::*click)()) {
        auto* button = Named(new PressedByReturn<QPushButton>(QString::fromLatin1(caption)), name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this,
                Guarded(QLatin1StringView(literal), [this, click] { (this->*click)(); }));
        buttons->addWidget(button);
    };
    add("btnFonts", "&Fonts", " in ZoomBoxForm, btnFonts_Click", &ZoomBoxForm::btnFonts_Click);
    add("btnCancel", "&Cancel", " in ZoomBoxForm, btnCancel_Click", &ZoomBoxForm::btnCancel_Click);
    add("btnOk", "&Ok", " in ZoomBoxForm, btnOk_Click", &ZoomBoxForm::btnOk_Click);
    auto* foot = new QVBoxLayout;
    foot->setSpacing(Rhythm);
    foot->addWidget(lblHint); // a line of their own in full width
    foot->addLayout(buttons);
    return foot;
}

void ZoomBoxForm::ShowZoom(int percent)
{
    m_tbZoom->SetZoom(percent);
    m_lblZoom->setText(ZoomText(percent));
    m_lblZoom->setVisible(percent != settings::DayZoom.fallback);
}

// Lines break at the edge of the box, not at a page width.
void ZoomBoxForm::Form_Resize()
{
    ErrorTail{" in ZoomBoxForm, Form_Resize"_L1}([&] { m_tbZoom->SetRightMargin(m_tbZoom->viewport()->width()); });
}

bool ZoomBoxForm::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) Q_EMIT SignOfLife();
    if (event->type() == QEvent::Resize) Form_Resize();
    return QDialog::eventFilter(watched, event);
}

void ZoomBoxForm::keyPressEvent(QKeyEvent* event)
{
    Q_EMIT SignOfLife();
    QDialog::keyPressEvent(event); // Esc rejects without setting bCancel
}

// Closing the window accepts: a person who closes it expects the note to be kept.
void ZoomBoxForm::closeEvent(QCloseEvent* event)
{
    btnOk_Click();
    event->accept();
}

void ZoomBoxForm::btnOk_Click()
{
    Q_EMIT SignOfLife();
    m_tbZoom->CommitPreedit();
    accept();
}

void ZoomBoxForm::btnCancel_Click()
{
    Q_EMIT SignOfLife();
    bCancel = true;
    reject();
}

void ZoomBoxForm::btnFonts_Click()
{
    const ErrorTail tail(" in ZoomBoxForm, btnFonts_Click"_L1);
    FontChoice chosen = m_fontCommand.Ask(this, *m_tbZoom, tail);
    chosen.colorIsChosen = true; // in this window the dialog's colour always counts
    ApplyToSelection(*m_tbZoom, chosen, tail);
}
