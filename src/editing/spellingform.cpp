#include "editing/spellingform.h"

#include "editing/chosendictionaries.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "platform/spelling/personalwords.h"
#include "settings/messages.h"
#include "settings/settings.h"

#include <QCheckBox>
#include <QListWidget>

#include <algorithm>

namespace {
constexpr int NameRole = Qt::UserRole; // of the dictionary
constexpr int ShownRows = 6;
constexpr int ListWidth = 360;

QListWidget* AddList(QVBoxLayout& column, const char* name, const QString& accessibleName)
{
    auto* list = Named(new QListWidget, name);
    list->setAccessibleName(accessibleName);
    list->setFixedSize(ListWidth, ShownRows * list->fontMetrics().lineSpacing() + 2 * Rhythm);
    column.addWidget(list);
    return list;
}

void AddDictionary(QListWidget& list, const DictionaryFiles& files, bool isChosen)
{
    const QString words = DictionaryInWords(files.name);
    const bool isUsable = Dictionary::IsUsable(files);
    auto* item = new QListWidgetItem(isUsable ? words : words + u" - cannot be used"_s, &list);
    item->setData(NameRole, files.name);
    item->setToolTip(files.path + u".dic"_s);
    item->setFlags(isUsable ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                            : Qt::ItemIsSelectable);
    item->setCheckState(isChosen && isUsable ? Qt::Checked : Qt::Unchecked);
}

QLabel* NoDictionaryLabel()
{
    auto* label =
        Named(new QLabel(u"No dictionary is installed. Install one for your language, for example the package "
                         "hunspell-en-us, and open this window again."_s),
              "lblNoDictionary");
    label->setWordWrap(true);
    label->setFixedWidth(ListWidth);
    return label;
}
} // namespace

SpellingForm::SpellingForm(QWidget* owner, PersonalWords& words) : QDialog(owner), m_words(words)
{
    setObjectName(u"SpellingForm"_s);
    setWindowTitle(u"Customize Spelling"_s);
    auto* column = DialogColumn(*this);
    if (InstalledDictionaries().empty()) {
        column->addWidget(NoDictionaryLabel());
    } else {
        m_chkSpelling = AddTo<QCheckBox>(*column, "chkSpelling", u"Check &spelling as you type"_s);
        m_chkSpelling->setChecked(Read(settings::Spelling) != 0);
        FillLanguages(AddPart(*column, u"Languages"_s));
        FillWords(AddPart(*column, u"Your Words"_s));
    }
    column->addWidget(MakeOkCancel(*this));
    CenterOnScreen(*this);
}

void SpellingForm::FillLanguages(QVBoxLayout& column)
{
    m_lstDictionaries = AddList(column, "lstDictionaries", u"Languages"_s);
    const std::vector<DictionaryFiles> installed = InstalledDictionaries();
    const QStringList chosen = ChosenNames(installed);
    for (const DictionaryFiles& one : installed)
        AddDictionary(*m_lstDictionaries, one, chosen.contains(one.name));
    m_lstDictionaries->sortItems();
    m_lstDictionaries->setCurrentRow(0);
}

void SpellingForm::FillWords(QVBoxLayout& column)
{
    m_lstWords = AddList(column, "lstWords", u"Your words"_s);
    m_lstWords->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_words.Refresh();
    m_lstWords->addItems(m_words.Words().values());
    m_lstWords->sortItems();
    m_lstWords->setEnabled(m_lstWords->count() > 0); // an empty list would not show the focus
    auto* btnRemove = Named(new QPushButton(u"&Remove"_s), "btnRemove");
    btnRemove->setAutoDefault(false);
    btnRemove->setEnabled(false);
    column.addWidget(btnRemove, 0, Qt::AlignLeft);
    connect(m_lstWords, &QListWidget::itemSelectionChanged, btnRemove,
            [=, this] { btnRemove->setEnabled(!m_lstWords->selectedItems().isEmpty()); });
    m_lstWords->setCurrentRow(0);
    connect(btnRemove, &QPushButton::clicked, this,
            Guarded(" in SpellingForm, btnRemove_Click"_L1, [this] { btnRemove_Click(); }));
}

void SpellingForm::btnRemove_Click()
{
    for (QListWidgetItem* item : m_lstWords->selectedItems()) {
        m_removed += item->text();
        delete item;
    }
}

void SpellingForm::accept()
{
    QDialog::accept();
    if (!m_chkSpelling) return;
    const ErrorTail tail(" in SpellingForm, btnOk_Click"_L1);
    tail([&] {
        QStringList chosen = ChosenNames(InstalledDictionaries()); // some may not be installed at the moment
        for (int row = 0; row < m_lstDictionaries->count(); ++row) {
            const QListWidgetItem& item = *m_lstDictionaries->item(row);
            chosen.removeAll(item.data(NameRole).toString());
            if (item.checkState() == Qt::Checked) chosen += item.data(NameRole).toString();
        }
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        Write(settings::Spelling, m_chkSpelling->isChecked() ? 1 : 0);
        Write(settings::Dictionaries, chosen.join(u','));
    });
    const bool isRemoved = std::ranges::all_of(m_removed, [this](const QString& word) { return m_words.Remove(word); });
    if (!isRemoved)
        messages::Tell(u"The words could not be removed, since their file cannot be written."_s, msgbox::Exclamation,
                       {m_words.Path()});
}
