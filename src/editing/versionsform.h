// Shows the earlier versions of a day, each beside the present text, and lets a person choose one.
#pragma once

#include "notes/dayversions.h"

#include <QDialog>

class QListWidget;
class RichTextBox;

class VersionsForm : public QDialog
{
    Q_OBJECT

public:
    // The day in words. There is at least one version.
    VersionsForm(QWidget* owner, const QString& day, const QByteArray& present, DayVersions versions);

    const QByteArray& Chosen() const; // valid after exec() returned Accepted

    void done(int result) override; // keeps the window's size

private:
    void FillList();
    void ShowVersion(int row);
    QWidget* MakeFoot();
    void ShowAtKeptSize();

    const DayVersions m_versions;
    QListWidget* m_lstVersions = nullptr;
    RichTextBox* m_tbVersion = nullptr;
    RichTextBox* m_tbPresent = nullptr;
};
