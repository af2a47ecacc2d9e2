// Font names as notes and settings store them, and the font dialog's list of them.
#pragma once

#include <QListView>
#include <QStringListModel>

class QFontDialog;
class QLineEdit;

QStringList FontFamilies(); // installed ones, sorted, without the maker that the toolkit appends

class FamilyList : public QListView
{
    Q_OBJECT

public:
    // Replaces the dialog's own list, which goes on behind it and decides which fonts are offered. name is selected
    // first; a missing one by its substitute.
    FamilyList(QFontDialog& dialog, QListView& families, QLineEdit& field, const QString& name);

    QString Name() const { return m_name; } // as shown
    bool IsTouched() const { return m_touched; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void TakePlace(QFontDialog& dialog);
    void Fill();
    void Follow(const QString& family);
    void Choose(const QModelIndex& index);
    void ShowName();

    QListView& m_families;
    QLineEdit& m_field;
    QStringListModel m_names;
    QString m_name;
    bool m_touched = false; // the user has chosen from it
    bool m_isShowing = false;
};
