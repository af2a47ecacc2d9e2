// A box for a date or a number of fixed form: the mask says where a digit may stand, "##/##/####". A digit takes the
// place of what stands at the caret; whatever else is typed is refused without a sound. The toolkit's input mask keeps
// the form; what comes in by keys, clipboard, drops and input methods is made to fit it here.
#pragma once

#include <QLineEdit>

class MaskEdBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit MaskEdBox(QWidget* parent = nullptr);

    void SetMask(const QString& mask); // "#" is a digit, all else stands for itself; an empty one takes any text

    bool IsComplete() const;                       // no digit is missing
    QString Text() const { return displayText(); } // with the mask's own characters, and "_" for each missing digit
    // As if it were pasted into the empty box: "7/4/1999" becomes "07/04/1999"; what does not fit leaves it empty.
    void SetText(const QString& text);

public Q_SLOTS:
    void paste(); // stands in for the toolkit's, which its menu calls by this name

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Group // of digits, between two separators; end is behind the last
    {
        qsizetype start;
        qsizetype end;
    };

    bool IsMasked() const { return !m_mask.isEmpty() && !isReadOnly(); }
    int GroupAt(int place) const;        // its number
    int DigitPlaceFrom(int place) const; // the next one, this one counted; behind the mask if there is none

    void Type(const QString& text);
    void MoveOn();
    void Take(const QString& text);
    void Put(int group, const QStringList& numbers);
    void Replace(const Group& part, const QString& text);
    void DeleteForward();
    void KeepCaretNear();

    QString m_mask;
    QList<Group> m_groups;
    int m_typedTo = -1; // the caret after the last digit that was typed
};
