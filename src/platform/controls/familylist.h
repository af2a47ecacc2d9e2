// The names of installed fonts as notes and settings keep them, and the font dialog's list of them.
#pragma once

#include <QListView>
#include <QStringListModel>

class QFontDialog;
class QLineEdit;

QStringList FontFamilies(); // sorted, without the maker that the toolkit puts behind a name

class FamilyList : public QListView
{
    Q_OBJECT

public:
    // Takes the place of the dialog's own list, which goes on behind it, narrowed as the dialog narrows it. The name is
    // the one to begin with; one that is not in the list is shown as what stands in for it.
    FamilyList(QFontDialog& dialog, QListView& families, QLineEdit& field, const QString& name);

    QString Name() const { return m_name; } // that the list shows
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
    bool m_touched = false; // by the person
    bool m_isShowing = false;
};
