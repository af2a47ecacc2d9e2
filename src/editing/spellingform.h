// Chooses whether and with which dictionaries the spelling is checked, and removes the person's own words.
#pragma once

#include <QDialog>
#include <QStringList>

class PersonalWords;
class QCheckBox;
class QListWidget;
class QVBoxLayout;

class SpellingForm : public QDialog
{
    Q_OBJECT

public:
    SpellingForm(QWidget* owner, PersonalWords& words); // shows the settings
    void accept() override;                             // writes them and removes the words

private:
    void FillLanguages(QVBoxLayout& column);
    void FillWords(QVBoxLayout& column);
    void btnRemove_Click();

    PersonalWords& m_words;
    QStringList m_removed;
    QCheckBox* m_chkSpelling = nullptr; // null: no dictionary is installed
    QListWidget* m_lstDictionaries = nullptr;
    QListWidget* m_lstWords = nullptr;
};
