#include "platform/controls/fontdialog.h"

#include "platform/desktop/centeronscreen.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QFontInfo>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QSize SwatchSize(32, 16);

QColor ColorOf(std::uint32_t value)
{
    return QColor(int(value & 0xFF), int(value >> 8 & 0xFF), int(value >> 16 & 0xFF));
}

std::uint32_t ValueOf(const QColor& color)
{
    return std::uint32_t(color.blue()) << 16 | std::uint32_t(color.green()) << 8 | std::uint32_t(color.red());
}

QFont FontOf(const FontChoice& choice)
{
    // The lists show what stands in for a font that is not installed.
    QFont font(QFontInfo(QFont(choice.name)).family());
    if (choice.size > 0) font.setPointSizeF(choice.size);
    font.setBold(choice.bold);
    font.setItalic(choice.italic);
    font.setUnderline(choice.underline);
    font.setStrikeOut(choice.strikeThru);
    return font;
}

// Return and Esc belong to the dialog around it; alone it would swallow the one and vanish by the other.
class InnerFontDialog : public QFontDialog
{
public:
    InnerFontDialog(const QFont& font, int flags, QWidget* outer) : QFontDialog(font, outer)
    {
        setWindowFlags(Qt::Widget);
        setOptions(NoButtons | DontUseNativeDialog);
        setOption(ScalableFonts, flags & fontdialog::TrueTypeOnly);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
};

class FontForm : public QDialog
{
public:
    FontForm(QWidget* owner, const FontChoice& seed, int flags);
    FontChoice Chosen() const;

private:
    void AskColor();
    void ShowColor();

    FontChoice m_seed;
    QColor m_color;
    InnerFontDialog* m_fonts;
    QPushButton* m_colorButton;
    QFont m_shown; // the given font as the lists show it
};

FontForm::FontForm(QWidget* owner, const FontChoice& seed, int flags)
    : QDialog(owner), m_seed(seed), m_color(ColorOf(seed.color)),
      m_fonts(new InnerFontDialog(FontOf(seed), flags, this)),
      m_colorButton(new QPushButton(QStringLiteral("&Color...")))
{
    setObjectName(QStringLiteral("FontForm"));
    setWindowTitle(QStringLiteral("Font"));
    m_colorButton->setObjectName(QStringLiteral("btnColor"));
    m_colorButton->setIconSize(SwatchSize);
    m_colorButton->setAutoDefault(false);
    connect(m_colorButton, &QPushButton::clicked, this, &FontForm::AskColor);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(16, 0, 16, 8);
    foot->addWidget(m_colorButton);
    foot->addWidget(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 8);
    column->addWidget(m_fonts);
    column->addLayout(foot);
    ShowColor();
    m_fonts->show();
    m_shown = m_fonts->currentFont();
    CenterOnScreen(*this);
}

void FontForm::AskColor()
{
    const QColor color = QColorDialog::getColor(m_color, this, QStringLiteral("Color"));
    if (color.isValid()) m_color = color;
    ShowColor();
}

void FontForm::ShowColor()
{
    QPixmap swatch(SwatchSize * devicePixelRatioF());
    swatch.setDevicePixelRatio(devicePixelRatioF());
    swatch.fill(m_color);
    m_colorButton->setIcon(swatch);
}

FontChoice FontForm::Chosen() const
{
    const QFont font = m_fonts->currentFont();
    FontChoice chosen = m_seed;
    if (font.family() != m_shown.family()) chosen.name = font.family();
    if (font.pointSizeF() != m_shown.pointSizeF()) chosen.size = font.pointSizeF();
    if (font.bold() != m_shown.bold()) chosen.bold = font.bold();
    if (font.italic() != m_shown.italic()) chosen.italic = font.italic();
    if (font.underline() != m_shown.underline()) chosen.underline = font.underline();
    if (font.strikeOut() != m_shown.strikeOut()) chosen.strikeThru = font.strikeOut();
    chosen.color = ValueOf(m_color);
    return chosen;
}
} // namespace

bool ChooseFont(QWidget* owner, FontChoice& choice, int flags)
{
    FontForm form(owner, choice, flags);
    if (form.exec() != QDialog::Accepted) return false;
    choice = form.Chosen();
    return true;
}
