// Interprets the tokens of rich text and reports the result to a sink. It has a stack of states, one per group, and a
// table of control words. Knows only QtGui.
#pragma once

#include "platform/richtext/rtfcodepage.h"
#include "platform/richtext/rtffonts.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtftokenizer.h"

#include <vector>

struct RtfPicture;

// The tables that a character's format points into. Indexes stay valid while they grow.
struct RtfTables
{
    RtfFonts fonts;
    QStringList links;
    std::vector<QRgb> colors;
};

class RtfSink
{
public:
    virtual ~RtfSink() = default;

    // A sink that wants codes gets everything in order: characters beyond ASCII as Text, all else as its code. Other
    // sinks get what a note shows.
    virtual bool WantsCodes() const { return false; }
    virtual void Code(QByteArrayView) {}

    virtual void Ascii(QLatin1StringView text, QByteArrayView code, const RtfCharacter& character) = 0;
    virtual void Text(QStringView text, const RtfCharacter& character) = 0;
    virtual void Picture(const RtfPicture&, const RtfCharacter&) {}
    virtual void EndParagraph(const RtfParagraph&, const RtfCharacter&) {} // with the format of its mark
    virtual void EndPage(const RtfParagraph&, const RtfCharacter&) {}
    virtual void EndCell() {}
    virtual void EndRow(const RtfParagraph&, const RtfCharacter&) {}
    virtual void Finish(const RtfParagraph&, const RtfCharacter&) {} // of a last paragraph without mark
};

class RtfMachine
{
public:
    RtfMachine(QByteArrayView rtf, RtfTables& tables, RtfSink& sink);

    void Run();

    // The character that a control word or symbol stands for; 0 if none.
    static char16_t CharacterOf(QByteArrayView word);

private:
    // Where the text of a group goes. The text of a Structure group is skipped, but not that of groups in it.
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
        bool isField = false; // the group is a field, so an instruction in it sets the link of its result
        QTextOption::TabType tabType = QTextOption::LeftTab; // of the next tab stop
        int fallbackLength = 1;                              // characters behind \u, for readers that do not know it
    };

    struct Actions; // what the control words do
    class Table;
    struct Word // or a symbol
    {
        enum Kind : quint8
        {
            Plain,
            Picture,    // may stand behind \*
            Destination // likewise, but only at the start of a group
        };
        void (*act)(RtfMachine& machine, int argument, const RtfToken& word);
        int argument = 0;
        Kind kind = Plain;
    };
    static const Word* Find(QByteArrayView name);

    void Interpret(const RtfToken& token);
    void OpenGroup();
    void CloseGroup();
    void EndInstruction();
    void DoWord(const RtfToken& word);
    void DoSymbol(const RtfToken& symbol);
    void DoText(const RtfToken& text);
    void DoHex(int byte);
    bool SkipsOne();

    void PutBytes(QByteArrayView bytes, bool areAscii); // in the code page of the font or document
    void PutAscii(QLatin1StringView text);
    void PutFontNames(QByteArrayView bytes, bool areAscii);
    void PutColors(QByteArrayView bytes);
    void PutCharacter(char32_t character); // from the current token
    void Put(QStringView text);
    void FlushBytes();
    QString Decoded() const;
    QByteArrayView Gap() const; // line ends before the current token

    RtfCharacter Character() const;
    bool HoldsSymbols() const { return m_state.destination == Body && m_tables.fonts.HoldsSymbolsAt(Character().font); }
    bool TakesText() const;
    bool TakesBytes() const;
    void Enter(Destination destination);
    void EndParagraph(void (RtfSink::*end)(const RtfParagraph&, const RtfCharacter&));

    RtfTokenizer m_tokenizer;
    RtfTables& m_tables;
    RtfSink& m_sink;
    const bool m_wantsCodes;

    State m_state;
    std::vector<State> m_outer;
    qsizetype m_depthBeyond = 0; // open groups beyond MaximumDepth, which have no state
    bool m_isGroupStart = false; // \* and destinations are valid only there
    bool m_isIgnorable = false;  // behind \*
    int m_skip = 0;              // fallback characters left to skip
    QByteArray m_bytes;          // not decoded yet: a character may continue
    QByteArrayView m_code;       // the part of the current token that the sink has not got as Text
    int m_codePage = AnsiCodePage;
    QString m_instruction;
    QRgb m_color = 0; // of the current entry of the colour table
};
