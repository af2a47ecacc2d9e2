// The rich text box: a QTextEdit under the property names and events of the program. A selection's property is empty
// where the selection is mixed.
#pragma once

#include "platform/richtext/movedtexts.h"
#include "platform/richtext/selectionformat.h"

#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>

#include <cstdint>
#include <optional>

// What changes while it lives is taken back by one undo.
class UndoStep
{
public:
    explicit UndoStep(QTextEdit& box) : m_cursor(box.document()) { m_cursor.beginEditBlock(); }
    ~UndoStep() { m_cursor.endEditBlock(); }
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

private:
    QTextCursor m_cursor;
};

class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    static constexpr int RightButton = Qt::RightButton; // as MouseDown tells it

    explicit RichTextBox(QWidget* parent = nullptr);

    QString Text() const; // lines end with "\n"; characters that stand for pictures are left out
    void SetText(const QString& text);

    // The exact bytes that were set, while the box is unmodified; otherwise the document as new rich text. Text that
    // does not begin as rich text is taken as plain. Setting clears the modified flag and the undo stack.
    QByteArray TextRTF() const;
    void SetTextRTF(const QByteArray& rtf);
    bool Holds(const QByteArray& rtf) const { return m_source == rtf && !Modified(); } // were set or saved last
    bool IsEmpty() const { return document()->isEmpty(); }                             // not even a blank or a picture

    // Locked, it refuses typing; selecting and copying go on.
    bool Locked() const { return !(textInteractionFlags() & Qt::TextEditable); }
    void SetLocked(bool locked);

    bool Modified() const { return document()->isModified(); } // since the content was last set
    void SetModified(bool modified);
    // What the box shows stands in a file as these bytes; unmodified from here, and what can be undone stays.
    void MarkSaved(const QByteArray& rtf);

    // The default font of the box. On a box with text, name and size change all of the text and set the modified flag.
    // The names are kept as written, installed or not. The size in points; InvalidPropertyValue if 0 or less.
    QFont Font() const { return document()->defaultFont(); }
    // How what is typed looks while the box is blank, and again when it becomes so. Text that is there stays as it is.
    void SetBlankFormat(const QFont& font, std::uint32_t color);
    void SetFontName(const QString& name);
    void SetFontSize(double points);

    std::optional<bool> SelBold() const { return Selected(IsBold); }
    std::optional<bool> SelItalic() const { return Selected(IsItalic); }
    std::optional<bool> SelUnderline() const { return Selected(IsUnderlined); }
    std::optional<bool> SelStrikeThru() const { return Selected(IsStruckThrough); }
    std::optional<QString> SelFontName() const { return Selected(FontName); }
    std::optional<double> SelFontSize() const { return Selected(FontSize); }
    // Blue, green, red from high to low; no colour of its own is 0.
    std::optional<std::uint32_t> SelColor() const { return Selected(Color); }

    // With no selection these set the format of what is typed next. On an empty box the colour comes back whenever the
    // box becomes empty again.
    void SetSelBold(bool bold) { MergeIntoSelection(BoldFormat(bold)); }
    void SetSelItalic(bool italic) { MergeIntoSelection(PartOf(&QTextCharFormat::setFontItalic, italic)); }
    void SetSelUnderline(bool underline) { MergeIntoSelection(PartOf(&QTextCharFormat::setFontUnderline, underline)); }
    void SetSelStrikeThru(bool isStruck) { MergeIntoSelection(PartOf(&QTextCharFormat::setFontStrikeOut, isStruck)); }
    void SetSelFontName(const QString& name);
    void SetSelFontSize(double points);
    void SetSelColor(std::uint32_t color);
    void SetSelAlignment(int alignment); // 0 left, 1 right, 2 centre

    int SelStart() const { return textCursor().selectionStart(); }
    int SelLength() const;
    void SetSelStart(int start); // empties the selection
    void SetSelLength(int length);

    void LoadFile(const QString& path); // FileNotFound, PathFileAccess
    void SaveFile(const QString& path); // PathFileAccess; a failed write leaves the old file

    void SetRightMargin(int pixels); // width of the wrapped text; 0 wraps at the box's edge

    // Shows the note to be read: from the first line, nothing selected. The caret stays, and is shown again
    // when the focus comes back other than by the mouse. In the middle of a drag only when that is over.
    void ShowBeginning();

    void CommitPreedit(); // takes in what an input method has shown but not yet committed

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    // The box came into focus by a click, by Tab or by the program; not when a menu, a popup or a window gave it back.
    // On a click this comes first, then MouseDown, then Click.
    void GotFocus();
    void Click();
    void MouseDown(int button, const QPoint& globalPosition); // 1 left, RightButton, 4 middle
    void MouseMove();
    void Change();
    void SelChange(); // caret and selection moves only, never a change of format
    // A key that has text (Backspace, Return and Esc included) or an input method's commit. 0 drops the key.
    void KeyPress(int& keyAscii);
    // Before anything but the keyboard changes the text: middle-button paste, a drop. False refuses it.
    void PasteRequested(bool& allowed);

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    QMimeData* createMimeDataFromSelection() const override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // Content goes in through SetText, SetTextRTF and LoadFile, which keep account of the bytes that were set.
    using QTextEdit::clear;
    using QTextEdit::setDocument;
    using QTextEdit::setHtml;
    using QTextEdit::setMarkdown;
    using QTextEdit::setPlainText;
    using QTextEdit::setText;

    void FormatAsTyped();
    void BeginSetting();
    void EndSetting();
    void KeepShapedText();
    void FollowText();
    void FollowCaret();
    bool HoldsOnly(bool (*isFiller)(QChar)) const;
    QTextCharFormat InitialFormat() const;
    void ResetTypingFormat();
    void UseTypingFormat();
    QTextCharFormat TypedFormat() const;
    QString TypedInstead(QKeyEvent& event) const;
    void Type(const QString& text);
    void KeepFormat(const QTextCharFormat& format);
    void FormatCommitted(int start, qsizetype length, const QTextCharFormat& format);
    template <typename Value>
    std::optional<Value> Selected(Value (*read)(const QTextCharFormat&, const QFont&)) const
    {
        return CommonValue(textCursor(), m_blank ? m_typingFormat : currentCharFormat(),
                           [&](const QTextCharFormat& format) { return read(format, Font()); });
    }
    void ChangeFont(const QFont& font, const QTextCharFormat& part);
    void MergeIntoSelection(const QTextCharFormat& part);
    void TellUnpasted(const QMimeData& source);
    void FollowRightMargin();
    void FollowScrollRange();
    void PassToViewport(const QMouseEvent& event);
    bool AdmitsKey(const QString& text);
    bool AdmitsPaste();
    void EndDrag(const QMouseEvent& event);
    int CutHeight() const;

    MovedTexts m_moved{*this}; // between this note and others

    std::optional<QByteArray> m_source;        // what was set, to be given back byte by byte while unmodified
    bool m_blank = true;                       // nothing but blanks, pictures, and lines that were begun since
    QTextCharFormat m_typingFormat;            // of what is typed into a blank box
    std::optional<std::uint32_t> m_blankColor; // set while the box was empty
    int m_caret = 0;                           // caret and anchor as SelChange last told them
    int m_anchor = 0;
    int m_rightMargin = 0;
    bool m_entered = false;       // GotFocus was raised, and the focus has not gone elsewhere in the program since
    bool m_setting = false;       // new content is coming in
    bool m_pressedBeside = false; // the mouse went down beside the text
    bool m_pressed = false;       // the left button went down here
    bool m_dragging = false;      // a drag of the selection may be under way
    bool m_leftInDrag = false;    // ShowBeginning waits for its end
    bool m_admitted = false;      // the change under way comes from a key or was let through already
};
