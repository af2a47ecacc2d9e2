#include "hall/cells.h"

#include "platform/controls/accessrole.h"
#include "platform/controls/toolbar.h"
#include "platform/look/paper.h"
#include "platform/runtime/language.h"

Cells::Cells(QWidget* client)
    : QObject(client), lblDayOfWeek(u"lblDayOfWeek"_s, [this](int i) { return MakeHeading(i); }),
      panelDay(u"panelDay"_s, [this](int i) { return MakePanel(i); }),
      tbDay(u"tbDay"_s, [this](int i) { return MakeBox(i); }),
      btnTunes(u"btnTunes"_s, [this](int i) { return MakeAlarmMark(i); }), m_client(client)
{
    lblDayOfWeek.Load(0).SetCaption(u"Sun"_s);
}

void Cells::EnterAgain()
{
    if (const int cell = CellWithCaret()) Q_EMIT tbDay(cell).GotFocus();
}

int Cells::CellWithCaret() const
{
    const QWidget* now = m_client->window()->focusWidget();
    for (int cell = 1; cell <= CellCount; ++cell)
        if (tbDay.Exists(cell) && &tbDay(cell) == now) return cell;
    return 0;
}

void Cells::Number(int cell, const DaySlot& slot)
{
    const QString caption = slot.Caption();
    panelDay(cell).SetCaption(caption);
    m_days.at(std::size_t(cell)) = {CellKey(caption), slot.isMemo ? 0 : slot.number};
}

bool Cells::CaretHasItsDay() const
{
    const int cell = CellWithCaret();
    return cell != 0 && KeyOf(cell) == m_entered;
}

void Cells::Unmark()
{
    const int marked = MarkedCell();
    ClearMarks();
    if (marked != 0) Q_EMIT StateChanged(marked);
}

void Cells::LeaveFor(QWidget& other)
{
    other.setFocus();
    Q_EMIT Left();
}

QVariantList Cells::Keys(CellRange range) const
{
    QVariantList keys;
    for (const int cell : range)
        if (panelDay.Exists(cell)) keys += KeyOf(cell);
    return keys;
}

int Cells::CellOfDay(CellRange range, int day) const
{
    for (const int cell : range)
        if (panelDay.Exists(cell) && DayOf(cell) == day) return cell;
    return 0;
}

void Cells::SetTabBehind(QWidget* first, QWidget* second)
{
    m_firstBehind = first;
    m_secondBehind = second;
}

void Cells::PlaceInTabOrder(QWidget* box)
{
    if (!m_firstBehind) return;
    QWidget::setTabOrder(box, m_firstBehind);
    QWidget::setTabOrder(m_firstBehind, m_secondBehind);
}

SSPanel* Cells::MakeHeading(int index)
{
    constexpr int HeadingHeight = 31;
    auto* heading = new SSPanel(m_client);
    heading->hide();
    SetAccessibleRole(heading, QAccessible::ColumnHeader);
    heading->resize(0, HeadingHeight);
    heading->SetPaper(paper::Band);
    heading->SetEdges(Qt::RightEdge | Qt::BottomEdge);
    heading->SetCaptionAlignment(SSPanel::CenterMiddle);
    heading->setToolTip(u"Double click to change fonts"_s);
    connect(heading, &SSPanel::DblClick, this, [this, index] { Q_EMIT HeadingDblClick(index); });
    return heading;
}

SSPanel* Cells::MakePanel(int index)
{
    auto* panel = new SSPanel(m_client);
    panel->hide();
    SetAccessibleRole(panel, QAccessible::Heading);
    panel->SetEdges(Qt::RightEdge | Qt::BottomEdge);
    connect(panel, &SSPanel::Click, this, [this, index] { Q_EMIT PanelClick(index); });
    connect(panel, &SSPanel::DblClick, this, [this, index] { Q_EMIT PanelDblClick(index); });
    return panel;
}

RichTextBox* Cells::MakeBox(int index)
{
    auto* box = new RichTextBox(m_client);
    box->hide();
    // Read-only until a planner's notes are read: what is typed before that could not be stored.
    box->SetLocked(true);
    PlaceInTabOrder(box);
    if (m_boxFilter) box->installEventFilter(m_boxFilter);
    connect(box, &RichTextBox::GotFocus, this, [this, index] { Q_EMIT GotFocus(index); });
    connect(box, &RichTextBox::Click, this, [this, index] { Q_EMIT Click(index); });
    connect(box, &RichTextBox::BlankDblClick, this, [this, index] { Q_EMIT BlankDblClick(index); });
    connect(box, &RichTextBox::MouseDown, this,
            [this, index](int button, const QPoint& at) { Q_EMIT MouseDown(index, button, at); });
    connect(box, &RichTextBox::MouseMove, this, [this, index] { Q_EMIT MouseMove(index); });
    connect(box, &RichTextBox::Change, this, [this, index] { Q_EMIT Change(index); });
    connect(box, &RichTextBox::SelChange, this, [this, index] { Q_EMIT SelChange(index); });
    connect(box, &RichTextBox::TookBack, this, [this, index] { Q_EMIT TookBack(index); });
    connect(box, &RichTextBox::KeyPress, this, [this, index](int& key) { Q_EMIT KeyPress(index, key); });
    connect(box, &RichTextBox::PasteRequested, this,
            [this, index](bool& allowed) { Q_EMIT PasteRequested(index, allowed); });
    return box;
}

QToolButton* Cells::MakeAlarmMark(int index)
{
    // The mark begins 5 pixels below the panel's edge; at this height it ends where the note begins.
    constexpr QSize MarkSize(17, paper::CaptionBand - 5);
    constexpr QSize PictureSize(15, 15);
    auto* mark = new ToolbarButton(MarkSize, PictureSize, u":/icons/alarm.svg"_s, u"Alarm"_s, m_client);
    mark->hide();
    if (tbDay.Exists(index)) QWidget::setTabOrder(&tbDay(index), mark);
    // Queued: the handler may unload the mark.
    connect(
        mark, &QToolButton::clicked, this, [this, index] { Q_EMIT AlarmMarkClick(index); }, Qt::QueuedConnection);
    return mark;
}
