#include "platform/desktop/msgbox.h"

#include "platform/desktop/centeronscreen.h"
#include "platform/desktop/mousepointer.h"
#include "platform/desktop/windowplace.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <vector>

namespace {
struct Button
{
    QMessageBox::StandardButton Standard;
    QLatin1StringView Caption;
};

// By answer, from 1.
constexpr std::array<Button, 8> Buttons{{
    {QMessageBox::NoButton, ""_L1},
    {QMessageBox::Ok, "OK"_L1},
    {QMessageBox::Cancel, "Cancel"_L1},
    {QMessageBox::Abort, "&Abort"_L1},
    {QMessageBox::Retry, "&Retry"_L1},
    {QMessageBox::Ignore, "&Ignore"_L1},
    {QMessageBox::Yes, "&Yes"_L1},
    {QMessageBox::No, "&No"_L1},
}};

struct ButtonSet
{
    std::vector<int> Answers; // in the order that the default button counts
    int Escape;
};

// By the low digit of the style.
const ButtonSet& ButtonSetOf(int style)
{
    using namespace msgbox;
    static const std::array<ButtonSet, 6> sets{{
        {{Ok}, Ok},
        {{Ok, Cancel}, Cancel},
        {{Abort, Retry, Ignore}, Abort},
        {{Yes, No, Cancel}, Cancel},
        {{Yes, No}, No},
        {{Retry, Cancel}, Cancel},
    }};
    const std::size_t index = std::size_t(style & 15);
    return sets[index < sets.size() ? index : 0];
}

QMessageBox::Icon IconOf(int style)
{
    static constexpr std::array Icons{QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Question,
                                      QMessageBox::Warning, QMessageBox::Information};
    const std::size_t index = std::size_t(style >> 4 & 7);
    return index < Icons.size() ? Icons[index] : QMessageBox::NoIcon;
}

constexpr qsizetype LongestText = 1200; // more would push the buttons off the screen; the box then unfolds the rest

// A path without blanks can be longer than the box is wide, so it gets invisible places to break: behind a folder, and
// in a name only if that is too long itself.
QString Breakable(QString text)
{
    static const QRegularExpression longRun(u"(?=\\S{41})([^\\s/]{0,39}/|\\S{40})"_s);
    return text.replace(longRun, u"\\1"_s + QChar(0x200B));
}

void Fill(QMessageBox& box, const QString& text, int style, const QString& title)
{
    box.setWindowTitle(title.isEmpty() ? u"Orrelin"_s : title);
    box.setTextFormat(Qt::PlainText);
    const bool fits = text.size() <= LongestText;
    box.setText(Breakable(fits ? text : text.left(LongestText) + u'\u2026'));
    if (!fits) box.setDetailedText(text);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setIcon(IconOf(style));
    box.setAccessibleName(box.windowTitle());
    box.setAccessibleDescription(text);
    const ButtonSet& set = ButtonSetOf(style);
    const std::size_t defaultIndex = std::size_t(style >> 8 & 3);
    for (std::size_t i = 0; i < set.Answers.size(); ++i) {
        const Button& button = Buttons[std::size_t(set.Answers[i])];
        QPushButton* const made = box.addButton(button.Standard);
        made->setText(button.Caption);
        if (i == 0 || i == defaultIndex) box.setDefaultButton(made);
        if (set.Answers[i] == set.Escape) box.setEscapeButton(made);
    }
}

// The box lays itself out by what its grid needs.
void WidenToTitle(const QMessageBox& box)
{
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(WidthForTitle(box), 0), grid->rowCount(), 0, 1, grid->columnCount());
}

int AnswerOf(int standardButton, int otherwise)
{
    const auto button = std::ranges::find(Buttons, QMessageBox::StandardButton(standardButton), &Button::Standard);
    return button == Buttons.begin() || button == Buttons.end() ? otherwise : int(button - Buttons.begin());
}

// A window that stays on top would hide a question that waits for its answer.
bool SplashIsUp()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    });
}
} // namespace

int MsgBox(const QString& text, int style, const QString& title, const QString& secondText)
{
    // A timer behind the box may close the window that owns it, and the box goes with its owner.
    const QPointer<QMessageBox> box = new QMessageBox(OwnerOfDialog());
    Fill(*box, text, style, title);
    box->setInformativeText(Breakable(secondText));
    WidenToTitle(*box);
    if (SplashIsUp()) box->setWindowFlag(Qt::WindowStaysOnTopHint);
    const int pressed = ExecModal(*box);
    delete box;
    return AnswerOf(pressed, ButtonSetOf(style).Escape);
}
