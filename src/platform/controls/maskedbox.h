// A box for a date or a number of fixed form: the mask says where a digit may stand, "##/##/####". A digit takes the
// place of what stands at the caret; whatever else is typed is refused without a sound.
#pragma once

#include <QLineEdit>

class MaskEdBox : public QLineEdit
{
    Q_OBJECT

public:
    explicit MaskEdBox(QWidget* parent = nullptr);

    QString Mask() const { return m_mask; }
    void SetMask(const QString& mask); // "#" is a digit, all else stands for itself; an empty one takes any text

    bool IsComplete() const; // no digit is missing
    QString Text() const;    // with the mask's own characters, and "_" for each digit that is missing
    // As if it were pasted into the empty box: "7/4/1999" becomes "07/04/1999"; what does not fit leaves it empty.
    void SetText(const QString& text);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    struct Group // of digits, between two separators; end is behind the last
    {
        int start;
        int end;
    };

    bool IsDigitPlace(int place) const;
    QList<Group> Groups() const;
    int GroupAt(int place) const; // its number
    int FirstMissing() const;     // behind the last digit

    void Type(const QString& text);
    void MoveOn();
    void Paste(const QString& text);
    QStringList Split(const QString& digits) const;
    void Put(const QList<Group>& groups, const QStringList& numbers);
    void Replace(int start, int end, const QString& text);
    bool Edit(const QKeyEvent& event);
    bool DeleteForward();
    void KeepCaretNear();

    QString m_mask;
    int m_typedTo = -1; // the caret after the last digit that was typed
};
