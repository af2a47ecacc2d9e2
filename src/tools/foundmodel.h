// The found notes as the rows of a list: the date, and the line around the word with the word marked.
#pragma once

#include "tools/wordsearch.h"

#include <QAbstractListModel>
#include <QStyledItemDelegate>
#include <QTextLayout>

struct FoundLine
{
    QString date; // "Jul 4, 1999"
    QString text;
    std::vector<FoundSpan> marks; // of the words, in the text
};

QList<QTextLayout::FormatRange> BoldIn(const FoundLine& line); // its marks
// A paragraph may be as long as a book: lets the line begin so many letters before its first word, or a little earlier,
// and end in time to be shown on one page.
void CutAround(FoundLine& line, qsizetype before);

class FoundModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    // The rows before this place are as they were.
    void Show(const std::vector<NoteHit>& found, const WordQuery& query, std::size_t from);
    const std::vector<NoteHit>& Notes() const { return m_notes; }
    FoundLine LineAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_notes.size());
    }
    QVariant data(const QModelIndex& index, int role) const override; // the row as one text

private:
    std::vector<NoteHit> m_notes;
    WordQuery m_query;
};

class FoundDelegate : public QStyledItemDelegate
{
public:
    FoundDelegate(const FoundModel& model, QObject* parent) : QStyledItemDelegate(parent), m_model(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    const FoundModel& m_model;
};
