// Gives the tokens of rich text their meaning: a stack of states, one a group, and a table from control word to what
// it does. Knows only QtGui.
#pragma once

#include "platform/richtext/rtfbuilder.h"
#include "platform/richtext/rtfcodepage.h"
#include "platform/richtext/rtffonts.h"
#include "platform/richtext/rtftokenizer.h"

#include <string_view>
#include <vector>

class QTextDocument;

class RtfInterpreter
{
public:
    RtfInterpreter(QByteArrayView rtf, QTextCursor& cursor, RtfBuilder::Purpose purpose);

    void Run();

    // What a control word stands for in the text; 0 where it is none of these words.
    static char16_t CharacterOf(QByteArrayView word);

private:
    // Where the text of a group goes. Structure is a group whose own text is none of the note's, though a group within
    // it may be.
    enum Destination : quint8
    {
        Body,
        Skipped,
        Structure,
        FontTable,
        ColorTable,
        Instruction // of a field
    };

    struct State
    {
        RtfCharacter character;
        RtfParagraph paragraph;
        Destination destination = Body;
        bool isInObject = false;
        bool isField = false;                                // so that an instruction tells what its result leads to
        QTextOption::TabType tabType = QTextOption::LeftTab; // of the next tab stop
        int fallbackLength = 1;                              // characters behind \u for readers that do not know it
    };

    // A handler gets the number that stands beside its word in the table, and the word.
    using Handler = void (RtfInterpreter::*)(int argument, const RtfToken& word);
    struct Word
    {
        std::string_view name;
        Handler handler;
        int argument = 0;

        bool IsDestination() const
        {
            return handler == &RtfInterpreter::EnterDestination || handler == &RtfInterpreter::Picture ||
                   handler == &RtfInterpreter::Object;
        }
    };
    static const Word Words[];
    static const Word* Find(QByteArrayView name);

    void Interpret(const RtfToken& token);
    void OpenGroup();
    void CloseGroup();
    void EndInstruction();
    void DoWord(const RtfToken& word);
    void DoSymbol(char symbol);
    void DoText(const RtfToken& text);
    void DoHex(int byte);

    void PutBytes(QByteArrayView bytes, bool areAscii); // in the code page of the font or the document
    void FlushBytes();
    QString Decoded() const;
    void Put(QStringView text);
    void PutUnit(char16_t unit);
    void FlushCells();
    void PutFontNames(QByteArrayView bytes);
    void PutColors(QByteArrayView bytes);
    RtfCharacter Character() const;
    bool TakesText() const;

    // The handlers of the words.
    void EnterDestination(int destination, const RtfToken& word);
    void Picture(int, const RtfToken& word);
    void Object(int, const RtfToken& word);
    void BeginField(int, const RtfToken& word);
    void PutCharacter(int character, const RtfToken&);
    void PutUnicode(int, const RtfToken& word);
    void SetFallbackLength(int, const RtfToken& word);
    void EndParagraph(int, const RtfToken&);
    void EndPage(int, const RtfToken&);
    void EndCell(int, const RtfToken&);
    void EndRow(int, const RtfToken&);
    void SetCodePage(int codePage, const RtfToken& word);
    void SetDefaultFont(int, const RtfToken& word);
    void SetFontCharset(int, const RtfToken& word);
    void SetFontCodePage(int, const RtfToken& word);
    void SetColorPart(int shift, const RtfToken& word);
    void SetPlain(int, const RtfToken&);
    void SetFont(int, const RtfToken& word);
    void SetFontSize(int, const RtfToken& word);
    void SetStyle(int style, const RtfToken& word);
    void SetUnderline(int place, const RtfToken& word);
    void SetVertical(int alignment, const RtfToken& word);
    void SetRise(int sign, const RtfToken& word);
    void SetColor(int, const RtfToken& word);
    void SetBackground(int, const RtfToken& word);
    void SetParagraphPlain(int, const RtfToken&);
    void SetAlignment(int alignment, const RtfToken&);
    void SetDirection(int isRightToLeft, const RtfToken&);
    void SetMeasure(int measure, const RtfToken& word);
    void SetLineSpacing(int, const RtfToken& word);
    void SetLineMultiple(int, const RtfToken& word);
    void SetTabType(int type, const RtfToken&);
    void AddTab(int, const RtfToken& word);

    QRgb ColorAt(int number) const;

    RtfTokenizer m_tokenizer;
    RtfFonts m_fonts;
    RtfBuilder m_builder;
    QTextDocument* m_document;

    State m_state;
    std::vector<State> m_outer;
    qsizetype m_depthBeyond = 0; // groups open that are too deep to have a state of their own
    bool m_isGroupStart = false; // \* and destinations have a meaning there only
    bool m_isIgnorable = false;  // behind that \*
    int m_skip = 0;              // fallback characters still to be passed over
    qsizetype m_cells = 0;       // cell ends not yet written: those that end a row are not
    QByteArray m_bytes;          // not yet decoded, as a character may need more of them
    int m_codePage = AnsiCodePage;
    QString m_instruction;
    QStringList m_links;
    std::vector<QRgb> m_colors;
    QRgb m_color = 0; // the entry of the colour table that is being read
};
