// A combo box for fonts, sizes or colours in the format bar, or for names in a dialog. The mouse gives it no focus, so
// the caret stays in its cell; Tab does.
#pragma once

#include <QComboBox>

class ORLCombo : public QComboBox
{
    Q_OBJECT

public:
    static constexpr int BlankColor = 16; // the entry for a mixed selection

    explicit ORLCombo(QWidget* parent = nullptr);

    void FillFontNames(); // installed families, read when the list is first used
    void FillFontSizes(); // 6 to 72
    void FillColors();    // the sixteen names with their colours, and a blank entry
    // Texts of a dialog, none chosen. Delete and Backspace clear the choice.
    void FillTexts(const QStringList& texts);

    QString Text() const; // as shown
    int ListCount() const;
    QString List(int index) const;
    int ListIndex() const { return currentIndex(); } // -1: none
    void SetListIndex(int index);                    // raises no event
    // Shows a text that is not in the list until the next choice or SetListIndex. ListIndex() is unchanged; raises no
    // event.
    void ShowText(const QString& text);
    // Shows the text, as an entry if the list has been read and has it. Raises no event.
    void ShowTextOrEntry(const QString& text);

    QSize sizeHint() const override { return SizeFor(m_usual); }        // room for a usual entry
    QSize minimumSizeHint() const override { return SizeFor(m_least); } // for a narrow bar; longer texts are cut
    void showPopup() override;

Q_SIGNALS:
    // The user chose an entry, perhaps the one that is shown: the selection may differ from what the box shows.
    void Change();
    void Click(); // the user pressed the box; once before each Change, and before the list opens

protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Reserve(int usual, int least);
    QSize SizeFor(int digits) const;
    void Fetch() const; // reads the font names if not read yet
    void Choose();

    int m_usual = 0; // usual width of an entry in digits
    int m_least = 0;
    QString m_unlisted; // shown instead of the entry, if not empty
    bool m_isPutOff = false;
    bool m_canBeEmpty = false;
    bool m_clicked = false; // Click has been raised for the present choice
};
