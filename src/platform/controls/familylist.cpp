#include "platform/controls/familylist.h"

#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopedValueRollback>

namespace {
// The toolkit appends the maker in brackets. Other programs that read a note do not know it.
QString WithoutMaker(const QString& family)
{
    static const QRegularExpression maker(u" \\[.*\\]$"_s);
    return QString(family).remove(maker);
}

// Adds Arial, the default font of notes, which is shown by a metric twin. Sorted; empty if there are none.
QStringList KeptNames(const QStringList& families)
{
    if (families.isEmpty()) return {};
    QStringList names(u"Arial"_s);
    for (const QString& family : families)
        names.append(WithoutMaker(family));
    names.sort(Qt::CaseInsensitive);
    names.removeDuplicates();
    return names;
}

QStringList TextsOf(const QAbstractItemModel& model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts.append(model.index(row, 0).data().toString());
    return texts;
}

// The index of the family for the name: itself, one with a maker, or its substitute.
qsizetype RowOf(const QString& name, const QStringList& families)
{
    for (qsizetype row = 0; row < families.size(); ++row)
        if (WithoutMaker(families[row]) == name) return row;
    return families.indexOf(QFontInfo(QFont(name)).family());
}
} // namespace

QStringList FontFamilies()
{
    QStringList families = QFontDatabase::families();
    families.removeIf([](const QString& family) { return QFontDatabase::isPrivateFamily(family); });
    return KeptNames(families);
}

FamilyList::FamilyList(QFontDialog& dialog, QListView& families, QLineEdit& field, const QString& name)
    : QListView(&dialog), m_families(families), m_field(field), m_name(name)
{
    setAccessibleName(u"Font"_s);
    setEditTriggers(NoEditTriggers);
    setUniformItemSizes(true);
    setModel(&m_names);
    TakePlace(dialog);
    Fill();
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &FamilyList::Choose);
    connect(this, &QListView::pressed, this, &FamilyList::Choose); // also on the current name
    connect(families.model(), &QAbstractItemModel::modelReset, this, &FamilyList::Fill);
    connect(families.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) { Follow(index.data().toString()); });
}

void FamilyList::TakePlace(QFontDialog& dialog)
{
    delete dialog.layout()->replaceWidget(&m_families, this); // the layout item of the old list
    QWidget::setTabOrder(&m_families, this);
    for (QLabel* label : dialog.findChildren<QLabel*>())
        if (label->buddy() == &m_families) label->setBuddy(this);
    m_families.hide();
    m_families.setFocusProxy(this);
    setFocus();
}

void FamilyList::Fill()
{
    m_names.setStringList(KeptNames(TextsOf(*m_families.model())));
    if (!m_names.stringList().contains(m_name)) m_name = WithoutMaker(m_families.currentIndex().data().toString());
    ShowName();
}

// The dialog has set another font.
void FamilyList::Follow(const QString& family)
{
    const QStringList families = TextsOf(*m_families.model());
    if (families.value(RowOf(m_name, families)) == family) return;
    m_name = WithoutMaker(family);
    ShowName();
}

void FamilyList::Choose(const QModelIndex& index)
{
    if (m_isShowing) return;
    m_name = index.data().toString();
    m_touched = true;
    const auto row = int(RowOf(m_name, TextsOf(*m_families.model())));
    if (row >= 0) m_families.setCurrentIndex(m_families.model()->index(row, 0));
    m_field.setText(m_name);
}

void FamilyList::ShowName()
{
    const QScopedValueRollback showing(m_isShowing, true);
    setCurrentIndex(m_names.index(int(m_names.stringList().indexOf(m_name)), 0));
    m_field.setText(m_name);
}

void FamilyList::showEvent(QShowEvent* event)
{
    QListView::showEvent(event);
    scrollTo(currentIndex(), PositionAtCenter);
}
