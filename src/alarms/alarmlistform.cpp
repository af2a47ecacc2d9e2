#include "alarms/alarmlistform.h"

#include "alarms/againin.h"
#include "alarms/alarmrules.h"
#include "alarms/firstline.h"
#include "platform/controls/dialogcolumn.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/clock.h"
#include "platform/desktop/pressedbyreturn.h"
#include "platform/runtime/errortail.h"
#include "state/moddate.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

#include <algorithm>

namespace {
constexpr QLatin1StringView ListLiteral(" in AlarmListForm");
}

QString ShownTimeIn(const ListedAlarm& listed)
{
    return ShownTimeText(listed.minute.toString(u"hh:mm"_s));
}

AlarmListForm::AlarmListForm(QWidget* owner, const QString& title, const AlarmListNeeds& needs)
    : QDialog(owner), m_needs(needs)
{
    setObjectName(u"AlarmListForm"_s);
    setWindowTitle(title);
    auto* column = DialogColumn(*this, QLayout::SetDefaultConstraint);
    MakeList();
    column->addWidget(m_lstAlarms, 1);
    auto* print = Named(new PressedByReturn<QPushButton>(u"&Print List..."_s), "btnPrintList");
    auto* close = Named(new PressedByReturn<QPushButton>(u"&Close"_s), "btnClose");
    connect(print, &QPushButton::clicked, this, Guarded(ListLiteral, [this] { m_needs.print(this, m_listed); }));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    print->setVisible(m_needs.print != nullptr);
    auto* row = DialogRow(Rhythm, {print, nullptr});
    if (m_needs.putOff) row->addWidget(MakeAgain());
    row->addWidget(close);
    column->addLayout(row);
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(false);
    m_lstAlarms->setFocus();
    CenterOnScreen(*this);
}

void AlarmListForm::MakeList()
{
    m_lstAlarms = Named(new QTreeWidget, "lstAlarms");
    m_lstAlarms->setAccessibleName(u"Alarms"_s);
    m_lstAlarms->setHeaderLabels({u"Day"_s, u"Time"_s, u"Note"_s});
    m_lstAlarms->setRootIsDecorated(false);
    m_lstAlarms->setUniformRowHeights(true);
    const QFontMetrics letters = m_lstAlarms->fontMetrics();
    m_lstAlarms->setColumnWidth(0, letters.horizontalAdvance(u"Sep 30, 2000 mm"_s));
    m_lstAlarms->setColumnWidth(1, letters.horizontalAdvance(u"12:00 AM mm"_s));
    // A click beside the rows would hide which one the buttons mean.
    connect(m_lstAlarms, &QTreeWidget::itemSelectionChanged, this, [this] {
        QTreeWidgetItem* const current = m_lstAlarms->currentItem();
        if (current && m_lstAlarms->selectedItems().isEmpty()) current->setSelected(true);
    });
    const auto chosen = m_needs.isFar ? &QTreeWidget::itemDoubleClicked : &QTreeWidget::itemClicked;
    connect(m_lstAlarms, chosen, this, Guarded(ListLiteral, [this] { Choose(); }));
}

QPushButton* AlarmListForm::MakeAgain()
{
    auto* again = Named(new PressedByReturn<QPushButton>(u"&Again in"_s), "btnAgain");
    again->setMenu(MakeAgainMenu(again, [this](const AgainIn& choice) {
        Guarded(ListLiteral, [&] { PutOff(MomentOf(choice, desktopclock::Now())); })();
    }));
    return again;
}

QSize AlarmListForm::sizeHint() const
{
    constexpr int Rows = 12;
    const QFontMetrics letters = m_lstAlarms->fontMetrics();
    const int width = m_lstAlarms->columnWidth(0) + m_lstAlarms->columnWidth(1) +
                      letters.horizontalAdvance(u"A line of a note that is neither short nor long"_s);
    return QDialog::sizeHint().expandedTo({width, Rows * (letters.height() + Rhythm)});
}

void AlarmListForm::Add(const std::vector<ListedAlarm>& listed)
{
    for (const ListedAlarm& one : listed) {
        if (std::ranges::find(m_listed, one) != m_listed.end()) continue;
        m_listed.push_back(one);
        const QString day = fnFormatDateKey(KeyOf(GridDayOf(one.minute.date())));
        new QTreeWidgetItem(m_lstAlarms, {day, ShownTimeIn(one), FirstLineOf(one.alarm)});
    }
    if (!m_lstAlarms->currentItem()) m_lstAlarms->setCurrentItem(m_lstAlarms->topLevelItem(0));
}

void AlarmListForm::ShowInFront()
{
    show();
    raise();
    activateWindow();
}

void AlarmListForm::Retire()
{
    disconnect();
    hide();
    deleteLater();
}

void AlarmListForm::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || focusWidget() != m_lstAlarms) return QDialog::keyPressEvent(event);
    Guarded(ListLiteral, [this] { Choose(); })();
}

void AlarmListForm::Choose()
{
    const int row = m_lstAlarms->indexOfTopLevelItem(m_lstAlarms->currentItem());
    if (row >= 0) m_needs.goTo(m_listed.at(std::size_t(row)).minute.date());
}

// What is put off is missed no longer.
void AlarmListForm::PutOff(const QDateTime& next)
{
    const int row = m_lstAlarms->indexOfTopLevelItem(m_lstAlarms->currentItem());
    if (row < 0 || !m_needs.putOff(m_listed.at(std::size_t(row)).alarm, next)) return;
    m_listed.erase(m_listed.begin() + row);
    delete m_lstAlarms->takeTopLevelItem(row);
    if (m_listed.empty()) accept();
}
