#include "platform/controls/fontdialog.h"

#include "platform/controls/familylist.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/look/colorvalue.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QFontInfo>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>

namespace {
constexpr QSize SwatchSize(32, 16);

QString NameOf(const FontChoice& choice)
{
    return choice.name.isEmpty() ? u"Arial"_s : choice.name;
}

QFont FontOf(const FontChoice& choice)
{
    // The lists show the substitute of a font that is not installed.
    QFont font(QFontInfo(QFont(NameOf(choice))).family());
    if (choice.size > 0) font.setPointSizeF(choice.size);
    font.setBold(choice.bold);
    font.setItalic(choice.italic);
    font.setUnderline(choice.underline);
    font.setStrikeOut(choice.strikeThru);
    return font;
}

// Leaves Return and Esc to the dialog around it. Records which lists have been touched, since choosing the value that
// is shown changes nothing.
class InnerFontDialog : public QFontDialog
{
public:
    enum Part
    {
        Font,
        Style,
        Size
    };

    InnerFontDialog(const FontChoice& seed, int flags, QDialog* outer)
        : QFontDialog(FontOf(seed), outer), m_outer(outer)
    {
        setWindowFlags(Qt::Widget);
        setOptions(NoButtons | DontUseNativeDialog);
        setOption(ScalableFonts, flags & fontdialog::TrueTypeOnly);
        setSizeGripEnabled(false);
        const auto lists = findChildren<QListView*>(Qt::FindDirectChildrenOnly);
        const auto fields = findChildren<QLineEdit*>(Qt::FindDirectChildrenOnly);
        const QString names[] = {u"Font"_s, u"Style"_s, u"Size"_s};
        for (const Part part : {Font, Style, Size}) { // in the order of the lists and fields
            lists[part]->setAccessibleName(names[part]);
            fields[part]->setAccessibleName(names[part]);
            if (part == Font) continue; // see FamilyList
            Watch(*lists[part]->viewport(), part);
            Watch(*fields[part], part);
        }
        m_families = new FamilyList(*this, *lists[Font], *fields[Font], NameOf(seed));
    }

    const FamilyList& Families() const { return *m_families; }
    bool IsTouched(Part part) const { return m_touched.contains(part); }
    void accept() override { m_outer->accept(); }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isKey =
            event->type() == QEvent::KeyPress && !static_cast<QKeyEvent*>(event)->text().trimmed().isEmpty();
        if (isKey || event->type() == QEvent::MouseButtonPress) m_touched.insert(m_parts.value(watched));
        return QFontDialog::eventFilter(watched, event);
    }

private:
    void Watch(QObject& control, Part part)
    {
        m_parts.insert(&control, part);
        control.installEventFilter(this);
    }

    QDialog* m_outer;
    FamilyList* m_families;
    QHash<const QObject*, Part> m_parts;
    QSet<Part> m_touched;
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
    QFont m_shown; // the given font as shown in the lists
    QString m_name;
};

FontForm::FontForm(QWidget* owner, const FontChoice& seed, int flags)
    : QDialog(owner), m_seed(seed), m_color(ColorOfValue(seed.color)), m_fonts(new InnerFontDialog(seed, flags, this)),
      m_colorButton(new QPushButton(u"&Color..."_s))
{
    setObjectName(u"FontForm"_s);
    setWindowTitle(u"Font"_s);
    m_colorButton->setObjectName(u"btnColor"_s);
    m_colorButton->setIconSize(SwatchSize);
    connect(m_colorButton, &QPushButton::clicked, this, &FontForm::AskColor);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
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
    m_name = m_fonts->Families().Name();
    CenterOnScreen(*this);
}

void FontForm::AskColor()
{
    const QColor color = QColorDialog::getColor(m_color, this, u"Color"_s);
    if (!color.isValid()) return;
    m_color = color;
    m_seed.colorIsChosen = true;
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
    const auto isChosen = [this](InnerFontDialog::Part part, const auto& now, const auto& shown) {
        return m_fonts->IsTouched(part) || now != shown;
    };
    const FamilyList& families = m_fonts->Families();
    if (families.IsTouched() || families.Name() != m_name) chosen.name = families.Name();
    if (isChosen(InnerFontDialog::Size, font.pointSizeF(), m_shown.pointSizeF())) chosen.size = font.pointSizeF();
    if (isChosen(InnerFontDialog::Style, font.bold(), m_shown.bold())) chosen.bold = font.bold();
    if (isChosen(InnerFontDialog::Style, font.italic(), m_shown.italic())) chosen.italic = font.italic();
    if (font.underline() != m_shown.underline()) chosen.underline = font.underline();
    if (font.strikeOut() != m_shown.strikeOut()) chosen.strikeThru = font.strikeOut();
    chosen.color = ValueOfColor(m_color);
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
