// A combo box of the format bar, filled once with fonts, sizes or colours, or a list of names in a dialog. It takes no
// focus by the mouse, so that the caret stays in its cell; Tab reaches it.
#pragma once

#include <QComboBox>

class ORLCombo : public QComboBox
{
    Q_OBJECT

public:
    static constexpr int BlankColor = 16; // the colour entry that stands for a mixed selection

    explicit ORLCombo(QWidget* parent = nullptr);

    void FillFontNames(); // the installed families; cheap: the list is read when it is first opened or looked into
    void FillFontSizes(); // plain integers, 6 to 72
    void FillColors();    // the sixteen names, each with its colour, and a blank one
    // Texts of a dialog, none chosen at first; Delete and Backspace choose none again.
    void FillTexts(const QStringList& texts);

    QString Text() const; // what the box shows
    int ListCount() const;
    QString List(int index) const;
    int ListIndex() const { return currentIndex(); } // -1 for none
    void SetListIndex(int index);                    // by the program: raises no event
    // By the program: shows a text that the list does not hold, until the next choice or SetListIndex. ListIndex stays.
    void ShowText(const QString& text);

    QSize sizeHint() const override { return SizeFor(m_usual); }        // room for the usual entry
    QSize minimumSizeHint() const override { return SizeFor(m_least); } // in a narrow bar; longer texts are cut off
    void showPopup() override;

Q_SIGNALS:
    // The user chose an entry. It may be the one that was shown: the selection need not have what the box shows.
    void Change();
    void Click(); // the user pressed the box; comes once before each Change, and before the list opens

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Reserve(int usual, int least);
    QSize SizeFor(int digits) const;
    void Fetch() const; // reads a list that was put off
    void Choose();

    int m_usual = 0; // the width of an entry in digits
    int m_least = 0;
    QString m_unlisted; // shown in place of the entry, if not empty
    bool m_isPutOff = false;
    bool m_canBeEmpty = false;
    bool m_clicked = false; // whether Click was raised for the choice that is being made
};
