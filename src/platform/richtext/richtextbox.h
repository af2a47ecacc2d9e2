// A QTextEdit with the property names and events of the program. A property of the selection is empty if the selection
// is mixed.
#pragma once

#include "platform/richtext/directionkeys.h"
#include "platform/richtext/movedtexts.h"
#include "platform/richtext/selectionformat.h"

#include <QImage>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextEdit>

#include <cstdint>
#include <optional>

// Makes all changes during its lifetime one undo step.
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
    static constexpr int RightButton = Qt::RightButton; // in MouseDown

    explicit RichTextBox(QWidget* parent = nullptr);

    QString Text() const; // lines end with "\n"; pictures are left out
    void SetText(const QString& text);

    // While the box is unmodified, the bytes that were set; else the document as RTF. Text without an RTF header
    // is plain. Setting clears the modified flag and the undo stack.
    QByteArray TextRTF() const;
    void SetTextRTF(const QByteArray& rtf);
    bool Holds(const QByteArray& rtf) const { return m_source == rtf && !Modified(); } // set or saved last
    bool IsEmpty() const { return document()->isEmpty(); }                             // no blank and no picture either

    // A locked box refuses typing but allows selecting and copying.
    bool Locked() const { return !(textInteractionFlags() & Qt::TextEditable); }
    void SetLocked(bool locked);
    bool CanUndo() const { return !Locked() && document()->isUndoAvailable(); }
    bool CanRedo() const { return !Locked() && document()->isRedoAvailable(); }

    bool Modified() const { return document()->isModified(); } // since the content was set
    void SetModified(bool modified);
    // The content has been saved as these bytes. Clears the modified flag and keeps the undo steps.
    void MarkSaved(const QByteArray& rtf);

    // The box's default font. In a box with text, setting name or size changes all of the text and sets the modified
    // flag. Names are kept as given, installed or not. Sizes are in points; InvalidPropertyValue if 0 or less.
    QFont Font() const { return document()->defaultFont(); }
    // The format of text typed while the box is blank, and again when it becomes so. Existing text is unchanged.
    void SetBlankFormat(const QFont& font, std::uint32_t color);
    void SetFontName(const QString& name);
    void SetFontSize(double points);

    std::optional<bool> SelBold() const { return Selected(IsBold); }
    std::optional<bool> SelItalic() const { return Selected(IsItalic); }
    std::optional<bool> SelUnderline() const { return Selected(IsUnderlined); }
    std::optional<bool> SelStrikeThru() const { return Selected(IsStruckThrough); }
    std::optional<QString> SelFontName() const { return Selected(FontName); }
    std::optional<double> SelFontSize() const { return Selected(FontSize); }
    // Blue, green, red from high to low; 0 if not set.
    std::optional<std::uint32_t> SelColor() const { return Selected(Color); }

    // Without a selection these set the format of the next typed text. In an empty box the colour returns whenever it
    // becomes empty again.
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
    void SetSelStart(int start); // clears the selection
    void SetSelLength(int length);

    void LoadFile(const QString& path); // FileNotFound, PathFileAccess
    void SaveFile(const QString& path); // PathFileAccess; a failed write leaves the old file

    // How large the note is shown, in percent. Formats keep their sizes, so nothing that is stored, copied or printed
    // depends on it.
    int Zoom() const { return m_zoom; }
    void SetZoom(int percent);

    void ForgetDirectionKeys() { m_directionKeys.Forget(); } // a shortcut has taken them, which the box does not see

    // Replaces this text in the format of its first letter, as one undo step, unless PasteRequested refuses it.
    void Replace(int start, int length, const QString& by);

    void SetRightMargin(int pixels); // width of the wrapped text; 0 wraps at the box's edge

    // Scrolls to the first line and clears the selection. The caret stays, and is scrolled to when the focus returns
    // other than by the mouse. During a drag, waits for its end.
    void ShowBeginning();

    // Links that may be opened; empty if there is none there. That of the menu is under the mouse, or at the caret if a
    // key opens the menu; only while MouseDown is raised.
    QString LinkAtCaret() const;
    const QString& LinkOfMenu() const { return m_linkOfMenu; }
    void OpenLink(const QString& target); // by the desktop; tells if that cannot be

    void CommitPreedit(); // commits text that an input method only shows yet

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    // The focus came by a click, by Tab or by the program, not back from a menu, a popup or a window. On a click this
    // precedes MouseDown, and Click follows.
    void GotFocus();
    void Click();
    void BlankDblClick();                                     // below the text, or in a box without text
    void MouseDown(int button, const QPoint& globalPosition); // 1 left, RightButton, 4 middle
    void MouseMove();
    void Change();
    void TookBack();  // by the keys of undo and redo
    void SelChange(); // moves of caret and selection, not changes of format
    // A key with text (also Backspace, Return and Esc) or an input method's commit. 0 drops the key.
    void KeyPress(int& keyAscii);
    // Before a change that is not typed: a middle-button paste, a drop or Replace. False refuses it.
    void PasteRequested(bool& allowed);
    void Painted(const QRect& part); // of the viewport; a listener may paint on it now

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
    void wheelEvent(QWheelEvent* event) override;

private:
    // Content is set only by SetText, SetTextRTF and LoadFile, which keep the bytes that were set.
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
    bool DeleteLetter(QKeyEvent& event);
    void RememberTyped(const QKeyEvent& event);
    bool IsTypedOn(const QTextCursor& caret) const;
    void KeepFormat(const QTextCharFormat& format);
    void FormatCommitted(int start, qsizetype length, const QTextCharFormat& format);
    void KeepTypingFormat(const QTextCharFormat& format);
    template <typename Value>
    std::optional<Value> Selected(Value (*read)(const QTextCharFormat&, const QFont&)) const
    {
        return CommonValue(textCursor(), m_blank ? m_typingFormat : currentCharFormat(),
                           [&](const QTextCharFormat& format) { return read(format, Font()); });
    }
    void ChangeFont(const QFont& font, const QTextCharFormat& part);
    void MergeIntoSelection(const QTextCharFormat& part);
    void PassKey(QKeyEvent* event);
    void ChangeByKey(QKeyEvent* event);
    bool EndListItem(const QKeyEvent& event);
    void FollowTypedEnd();
    void SetTypedDirection(Qt::LayoutDirection direction);
    void OpenMenuAtCaret();
    void TellMouseDown(int button, const QPoint& globalPosition, const QString& link);
    QString LinkUnder(const QPoint& position) const; // in the viewport
    bool ShowLinkTip(const QHelpEvent& event);
    void ShowPointer(const QPoint& position, Qt::KeyboardModifiers modifiers);
    void FollowControl(const QKeyEvent& event);
    void TellUnpasted(const QMimeData& source);
    void FollowRightMargin();
    void FollowScrollRange();
    void PassToViewport(const QMouseEvent& event);
    bool AdmitsKey(const QString& text);
    bool AdmitsPaste();
    void EndDrag(const QMouseEvent& event);
    int CutHeight() const;

    MovedTexts m_moved{*this}; // moves between this note and others

    std::optional<QByteArray> m_source;        // the bytes that were set; valid while unmodified
    bool m_blank = true;                       // only blanks, pictures and newly begun lines
    QTextCharFormat m_typingFormat;            // for text typed into a blank box
    std::optional<std::uint32_t> m_blankColor; // as set while the box was empty
    int m_caret = 0;                           // caret and anchor at the last SelChange
    int m_anchor = 0;
    std::pair<int, int> m_typed{-1, -1}; // caret and revision of the document behind the last typed letter
    QString m_linkOfMenu;
    DirectionKeys m_directionKeys;
    int m_rightMargin = 0;
    int m_zoom = 100;
    QImage m_zoomed;              // the screen as the layout takes it to be while zoomed
    bool m_entered = false;       // GotFocus was raised, and the focus has stayed in the box since
    bool m_setting = false;       // content is being set
    bool m_pressedBeside = false; // the mouse was pressed beside the text
    bool m_pressed = false;       // the left button was pressed in the text
    bool m_dragging = false;      // a drag of the selection may be in progress
    bool m_leftInDrag = false;    // ShowBeginning waits for the end of the drag
    bool m_admitted = false;      // the current change comes from a key or has been admitted
};
