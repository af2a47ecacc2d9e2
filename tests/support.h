// Folders for a test, and answers to boxes and dialogs that open during a call. Boxes and dialogs are real. Each answer
// waits in a queue until a window of its kind is the active modal one, so several answers meet several boxes in their
// order.
#pragma once

#include "platform/desktop/folders.h"
#include "platform/desktop/msgbox.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFileDialog>
#include <QFontDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

#include <deque>
#include <functional>

// During its life the program's folders lie in a temporary folder.
class TemporaryFolders
{
public:
    TemporaryFolders() { folders::SetRootForTests(m_folder.path()); }
    ~TemporaryFolders() { folders::SetRootForTests(QString()); }
    TemporaryFolders(const TemporaryFolders&) = delete;
    TemporaryFolders& operator=(const TemporaryFolders&) = delete;

    QString Path(const QString& name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

// A variable of the environment for a while.
class Environment
{
public:
    Environment(const char* name, const QByteArray& value) : m_name(name), m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~Environment() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }
    Q_DISABLE_COPY_MOVE(Environment)

private:
    const char* m_name;
    const QByteArray m_before;
};

// The contents of a message box.
struct SeenBox
{
    QString Title;
    QString Text;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;
    QString DefaultButton; // without "&"
};

namespace support {
struct Answer
{
    std::function<bool(QWidget*)> Fits;
    std::function<void(QWidget*)> Give;
};

inline std::deque<Answer> g_answers;  // the first one is current
inline QDeadlineTimer g_answersUntil; // after this the first answer fails the test
inline constexpr int longestWait = 20000;

inline void Poll()
{
    if (g_answers.empty()) return;
    if (g_answersUntil.hasExpired()) {
        g_answers.clear();
        if (auto* const unasked = qobject_cast<QDialog*>(QApplication::activeModalWidget())) unasked->reject();
        QTest::qFail("the box or dialog that a test wanted to answer did not come", __FILE__, __LINE__);
        return;
    }
    // Starts the next poll first: the answer may open another box.
    QTimer::singleShot(5, qApp, Poll);
    QWidget* const modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible() || !g_answers.front().Fits(modal)) return;
    const Answer answer = g_answers.front();
    g_answers.pop_front();
    g_answersUntil.setRemainingTime(longestWait);
    const QPointer<QDialog> dialog = qobject_cast<QDialog*>(modal);
    answer.Give(modal);
    // After a failed check nobody else would close the window.
    if (dialog && QTest::currentTestFailed()) dialog->reject();
}

inline QString PlainText(const QAbstractButton* button)
{
    return button ? button->text().remove(u'&') : QString();
}

inline void Press(QMessageBox& box, const std::function<bool(QAbstractButton*)>& fits, SeenBox* seen)
{
    const QString text = box.detailedText().isEmpty() ? box.text().remove(QChar(0x200B)) : box.detailedText();
    if (seen) *seen = {box.windowTitle(), text, box.icon(), PlainText(box.defaultButton())};
    for (QAbstractButton* button : box.buttons()) {
        if (fits(button)) return QTest::mouseClick(button, Qt::LeftButton);
    }
    QTest::qFail("the box has no such button", __FILE__, __LINE__);
    box.reject();
}
} // namespace support

// Runs the action in the next modal window that fits.
inline void OnNextModal(std::function<bool(QWidget*)> fits, std::function<void(QWidget*)> action)
{
    support::g_answers.push_back({std::move(fits), std::move(action)});
    if (support::g_answers.size() > 1) return;
    support::g_answersUntil.setRemainingTime(support::longestWait);
    QTimer::singleShot(0, qApp, support::Poll);
}

// Runs the action in the next modal window of this class.
template <typename Window>
void OnNextModal(std::function<void(Window&)> action)
{
    OnNextModal([](QWidget* window) { return qobject_cast<Window*>(window) != nullptr; },
                [action](QWidget* window) { action(*qobject_cast<Window*>(window)); });
}

// The answers not yet used; 0 after a call means that every expected box came.
inline int WaitingAnswers()
{
    return int(support::g_answers.size());
}

inline void DropAnswers()
{
    support::g_answers.clear();
}

// Presses the button with this text ("Yes") or number (msgbox::Yes) in the next message box.
inline void AnswerNextBox(const QString& button, SeenBox* seen = nullptr)
{
    OnNextModal<QMessageBox>([=](QMessageBox& box) {
        support::Press(
            box, [&](QAbstractButton* b) { return support::PlainText(b) == button; }, seen);
    });
}

inline void AnswerNextBox(int answer, SeenBox* seen = nullptr)
{
    static constexpr QMessageBox::StandardButton buttons[] = {
        QMessageBox::NoButton, QMessageBox::Ok,     QMessageBox::Cancel, QMessageBox::Abort,
        QMessageBox::Retry,    QMessageBox::Ignore, QMessageBox::Yes,    QMessageBox::No};
    OnNextModal<QMessageBox>([=](QMessageBox& box) {
        support::Press(
            box, [&](QAbstractButton* b) { return box.standardButton(b) == buttons[answer]; }, seen);
    });
}

// Types the name or path into the next file dialog and presses Return.
inline void AnswerNextFileDialog(const QString& path)
{
    OnNextModal<QFileDialog>([=](QFileDialog& dialog) {
        auto* const edit = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        // Without the focus, the dialog searches its list for the typed letters. The widget must be active: its QWindow
        // counts as active already while the owner is.
        Q_UNUSED(QTest::qWaitFor([&] { return dialog.isActiveWindow(); }, support::longestWait));
        edit->setFocus();
        edit->selectAll();
        for (const QChar letter : path)
            QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, letter, {});
        if (edit->completer()) edit->completer()->popup()->hide();
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

inline void CancelNextFileDialog()
{
    OnNextModal<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

// Without a window manager a window may open inactive, and then no control has the focus.
inline void Activate(QWidget& window)
{
    window.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &window);
}

// Runs the choice in the next font dialog; null cancels it.
inline void AnswerFontDialog(const std::function<void(QFontDialog&)>& choose)
{
    OnNextModal([](QWidget* window) { return window->findChild<QFontDialog*>() != nullptr; },
                [choose](QWidget* window) {
                    if (choose) choose(*window->findChild<QFontDialog*>());
                    QTest::keyClick(window, choose ? Qt::Key_Return : Qt::Key_Escape);
                });
}

// Chooses the dialog's initial font in another size.
inline void ChooseSize(QFontDialog& dialog, int points)
{
    QFont font = dialog.currentFont();
    font.setPointSize(points);
    dialog.setCurrentFont(font);
}

// The window's control of this name.
template <typename Control>
Control& In(const QWidget& window, const char* name)
{
    return *window.findChild<Control*>(QString::fromLatin1(name));
}

inline void Press(const QWidget& window, const char* button)
{
    QTest::mouseClick(&In<QAbstractButton>(window, button), Qt::LeftButton);
}

// Ctrl zooms. Only a person's wheel is passed on to the parents.
inline void TurnWheel(QWidget& over, int turn, Qt::KeyboardModifiers modifiers = {})
{
    const QPointF at(5, 5);
    QWheelEvent event(at, over.mapToGlobal(at), {}, {0, turn}, {}, modifiers, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&over, &event);
}
