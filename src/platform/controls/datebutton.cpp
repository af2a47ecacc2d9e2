#include "platform/controls/datebutton.h"

#include "platform/controls/dialogpart.h"
#include "platform/controls/maskedbox.h"
#include "platform/controls/named.h"
#include "platform/controls/resources.h"
#include "platform/desktop/clock.h"
#include "platform/look/paper.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
// The heading looks like those of the main window's calendar, in any theme.
void DressHeading(QCalendarWidget& calendar)
{
    auto* heading = calendar.findChild<QWidget*>(u"qt_calendar_navigationbar"_s);
    if (!heading) return;
    QPalette palette = heading->palette();
    palette.setColor(QPalette::Highlight, paper::Band); // the heading's ground
    palette.setColor(QPalette::HighlightedText, paper::Ink);
    heading->setPalette(palette);
    for (const auto& [name, tip, picture] :
         {std::tuple("qt_calendar_prevmonth", u"Previous month"_s, u":/icons/left.svg"_s),
          {"qt_calendar_nextmonth", u"Next month"_s, u":/icons/right.svg"_s}}) {
        auto* arrow = heading->findChild<QToolButton*>(QString::fromLatin1(name));
        if (!arrow) continue;
        arrow->setIcon(PictureIcon(picture));
        arrow->setAccessibleName(tip);
        arrow->setToolTip(tip);
    }
}
} // namespace

MaskEdBox* MakeDateBox(const char* name, const QString& mask)
{
    auto* box = Named(new MaskEdBox, name);
    box->SetMask(mask);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(u"00/00/00000"_s) + 2 * Rhythm);
    return box;
}

DateButton::DateButton(MaskEdBox* box, const QString& form, const QString& tip)
    : PictureButton({u":/icons/month.svg"_s}), m_box(box), m_format(form)
{
    m_format.replace(u'D', u'd').replace(u'Y', u'y'); // a capital M is the month here, too
    SetToolTip(0, tip);
    SetFramed(true);
    setIconSize({18, 18});
    setFixedSize(28, 28);
    setFocusPolicy(Qt::NoFocus); // a typed date is followed by the next box; Alt+Down opens the calendar from this one
    connect(this, &PictureButton::Click, this, &DateButton::Open);
    box->installEventFilter(this);
}

bool DateButton::eventFilter(QObject* box, QEvent* event)
{
    if (event->type() == QEvent::EnabledChange) setEnabled(m_box->isEnabled());
    if (event->type() != QEvent::KeyPress) return PictureButton::eventFilter(box, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_Down || key.modifiers().setFlag(Qt::KeypadModifier, false) != Qt::AltModifier)
        return false;
    Open();
    return true;
}

void DateButton::Open()
{
    auto* popup = new QFrame(m_box, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(popup);
    column->setContentsMargins(1, 1, 1, 1);
    QCalendarWidget* calendar = MakeCalendar();
    column->addWidget(calendar);
    const auto take = [this, popup](QDate day) {
        m_box->SetText(day.toString(m_format));
        m_box->setFocus();
        popup->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take); // Return
    popup->move(PlaceOf(popup->sizeHint()));
    popup->show();
    calendar->setFocus();
}

// A date that the true calendar does not have is shown as today, like a missing one.
QCalendarWidget* DateButton::MakeCalendar() const
{
    const QDate today = desktopclock::Now().date();
    const QDate entered = QDate::fromString(m_box->Text(), m_format);
    auto* calendar = new QCalendarWidget;
    calendar->setObjectName(u"calendar"_s);
    calendar->setAccessibleName(accessibleName());
    calendar->setLocale(QLocale::c()); // English, like the program
    calendar->setFirstDayOfWeek(Qt::Sunday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setDateEditEnabled(false); // the box is there for typing
    calendar->setDateRange(QDate(1, 1, 1), QDate(9999, 12, 31));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        calendar->setWeekdayTextFormat(day, {}); // not red
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    calendar->setDateTextFormat(today, bold);
    DressHeading(*calendar);
    calendar->setSelectedDate(entered.isValid() ? entered : today);
    return calendar;
}

// Below the box, or above it where the screen ends.
QPoint DateButton::PlaceOf(const QSize& popup) const
{
    const QRect screen = m_box->screen()->availableGeometry();
    QPoint place = m_box->mapToGlobal(QPoint(0, m_box->height()));
    if (place.y() + popup.height() > screen.bottom()) place.ry() -= m_box->height() + popup.height();
    place.setX(qMax(screen.left(), qMin(place.x(), screen.right() - popup.width())));
    return place;
}
