#include "platform/controls/workwindow.h"

#include "platform/controls/named.h"
#include "platform/desktop/doevents.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/windowplace.h"
#include "platform/engine/longwork.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

class WorkWindow::Dialog : public QDialog
{
public:
    Dialog(const QString& title, const QString& afterCancel)
        : QDialog(OwnerOfDialog()), m_bar(new QProgressBar), m_buttons(new QDialogButtonBox)
    {
        setWindowTitle(title);
        setWindowModality(Qt::ApplicationModal);
        m_bar->setRange(0, Most);
        m_bar->setMinimumWidth(320);
        m_bar->setAccessibleName(title);
        m_buttons->addButton(u"&Cancel"_s, QDialogButtonBox::RejectRole);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(m_bar);
        layout->addWidget(new QLabel(afterCancel));
        layout->addWidget(m_buttons);
    }
    void ShowDone(double done) { m_bar->setValue(static_cast<int>(done * Most)); }
    bool IsCancelled() const { return m_isCancelled; }

    // The window stays until the work has ended.
    void reject() override
    {
        m_isCancelled = true;
        m_buttons->setEnabled(false);
    }

private:
    static constexpr int Most = 1000;

    QProgressBar* m_bar;
    QDialogButtonBox* m_buttons;
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
