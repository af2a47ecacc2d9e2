// A box for a date or number with a mask such as "##/##/####". A typed digit replaces the one at the caret; other
// characters are ignored. The toolkit's input mask keeps the form; this class fits keys, pastes, drops and input
// methods to it.
#pragma once

#include <QLineEdit>

class MaskEdBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit MaskEdBox(QWidget* parent = nullptr);

    void SetMask(const QString& mask); // "#" is a digit, other characters are literal; an empty mask accepts any text

    bool IsComplete() const;                       // no digit is missing
    QString Text() const { return displayText(); } // with literals, and "_" for missing digits
    // As if pasted into the empty box: "7/4/1999" becomes "07/04/1999". A text that does not fit leaves it empty.
    void SetText(const QString& text);

public Q_SLOTS:
    void paste(); // replaces the toolkit's slot, which the context menu calls by name

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Group // of digits between separators; end is exclusive
    {
        qsizetype start;
        qsizetype end;
    };

    bool IsMasked() const { return !m_mask.isEmpty() && !isReadOnly(); }
    int GroupAt(int place) const;        // index of the group
    int DigitPlaceFrom(int place) const; // from place on; m_mask.size() if there is none

    void Type(const QString& text);
    void MoveOn();
    void Take(const QString& text);
    void Put(int group, const QStringList& numbers);
    void Replace(const Group& part, const QString& text);
    void DeleteForward();
    void KeepCaretNear();

    QString m_mask;
    QList<Group> m_groups;
    int m_typedTo = -1; // caret after the last typed digit
};
