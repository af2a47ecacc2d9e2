// Shows what an import would bring into the planner, and lets the person choose by ticks.
#pragma once

#include "exchange/importedfile.h"

#include <QDialog>
#include <QHash>

#include <functional>
#include <optional>

struct DateOrder;
class MaskEdBox;
class QBoxLayout;
class QCheckBox;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

class ImportForm : public QDialog
{
public:
    // Reads the file again, with rules without an end up to this day. Nothing after a Cancel or a message.
    using Read = std::function<std::optional<ImportedFile>(const QDate& endlessUntil)>;
    ImportForm(QWidget* owner, const QString& fileName, const Read& read, const QDate& endlessUntil, ImportedFile file,
               const QDateTime& now);

    std::vector<ImportedEntry> Ticked() const;

    QSize sizeHint() const override;
    void accept() override; // after a check of the day

private:
    QTreeWidget* MakeList();
    void AddOptions(QBoxLayout& column);
    void Fill();
    void ShowSum();
    void ReadAgain();
    void ShowUntil();
    void TickAll(bool isTicked);
    bool IsTicked(std::size_t entry) const;
    QDate UntilInBox() const; // invalid if the box holds no date

    const DateOrder& m_dateOrder;
    QString m_fileName;
    Read m_read;
    QDate m_endlessUntil;
    ImportedFile m_file;
    QHash<QString, bool> m_ticks; // by entry, of all readings
    QDateTime m_now;
    QTreeWidget* m_entries = nullptr; // the rows are the file's entries, then what is left out
    QLabel* m_lblSum = nullptr;
    QCheckBox* m_chkAlarms = nullptr;
    QWidget* m_until = nullptr; // the row of rules without an end
    MaskEdBox* m_maskUntil = nullptr;
};
