#include "platform/controls/workwindow.h"

#include "platform/controls/okcancel.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/windowplace.h"
#include "platform/engine/longwork.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>

class WorkWindow::Dialog : public QDialog
{
public:
    Dialog(const QString& title, const QString& afterCancel) : QDialog(OwnerOfDialog()), m_bar(new QProgressBar)
    {
        setWindowTitle(title);
        setWindowModality(Qt::ApplicationModal);
        m_bar->setRange(0, Most);
        m_bar->setMinimumWidth(320);
        m_bar->setAccessibleName(title);
        auto* column = DialogColumn(*this);
        column->addWidget(m_bar);
        if (afterCancel.isEmpty()) return;
        m_buttons = MakeButtonBox(*this);
        m_buttons->addButton(u"&Cancel"_s, QDialogButtonBox::RejectRole);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        column->addWidget(new QLabel(afterCancel));
        column->addWidget(m_buttons);
    }
    void ShowDone(double done) { m_bar->setValue(static_cast<int>(done * Most)); }
    bool IsCancelled() const { return m_isCancelled; }

    // The window stays until the work has ended.
    void reject() override
    {
        if (!m_buttons) return;
        m_isCancelled = true;
        m_buttons->setEnabled(false);
    }

private:
    static constexpr int Most = 1000;

    QProgressBar* m_bar;
    QDialogButtonBox* m_buttons = nullptr; // null if there is no Cancel
    bool m_isCancelled = false;
};

WorkWindow::WorkWindow(const QString& title, const QString& afterCancel) : m_title(title), m_afterCancel(afterCancel)
{
    // What waits in the queue comes before the work, not inside it.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    m_running.start();
    longwork::SetWatch([this](double done) { return Follow(done); });
}

WorkWindow::~WorkWindow()
{
    longwork::SetWatch(nullptr);
}

bool WorkWindow::Follow(double done)
{
    constexpr int Noticed = 500, BetweenLooks = 50; // milliseconds
    if (m_dialog && m_dialog->IsCancelled()) return false;
    if (m_dialog ? !m_sinceLook.hasExpired(BetweenLooks) : !m_running.hasExpired(Noticed)) return true;
    if (!m_dialog) {
        SetMousePointer(mousepointer::Default);
        m_dialog = std::make_unique<Dialog>(m_title, m_afterCancel);
        m_dialog->show();
    }
    m_dialog->ShowDone(done);
    DoWindowEvents();
    m_sinceLook.start();
    return !m_dialog->IsCancelled();
}
