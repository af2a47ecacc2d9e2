// The one reading of rich text: gives its tokens their meaning and tells a sink what comes of them. A stack of states,
// one a group, and a table from control word to what it does. Knows only QtGui.
#pragma once

#include "platform/richtext/rtfcodepage.h"
#include "platform/richtext/rtffonts.h"
#include "platform/richtext/rtfformat.h"
#include "platform/richtext/rtftokenizer.h"

#include <vector>

struct RtfPicture;

// What places in a character's format lead to. They stay what they are while the tables grow.
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

    // A sink that wants codes gets all that stands in the bytes, in its order: characters beyond ASCII as Text, the
    // rest as the code that it is. Others get what a note shows.
    virtual bool WantsCodes() const { return false; }
    virtual void Code(QByteArrayView) {}

    virtual void Ascii(QLatin1StringView text, QByteArrayView code, const RtfCharacter& character) = 0;
    virtual void Text(QStringView text, const RtfCharacter& character) = 0;
    virtual void Picture(const RtfPicture&, const RtfCharacter&) {}
    virtual void EndParagraph(const RtfParagraph&, const RtfCharacter&) {} // the format of its mark
    virtual void EndPage(const RtfParagraph&, const RtfCharacter&) {}
    virtual void EndCell() {}
    virtual void EndRow(const RtfParagraph&, const RtfCharacter&) {}
    virtual void Finish(const RtfParagraph&, const RtfCharacter&) {} // of what has no mark
};

class RtfMachine
{
public:
    RtfMachine(QByteArrayView rtf, RtfTables& tables, RtfSink& sink);

    void Run();

    // What a control word stands for in the text, or a sign behind a backslash; 0 where it is none of these.
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

    struct Actions; // what the words do
    class Table;
    struct Word // also of a sign behind a backslash
    {
        enum Kind : quint8
        {
            Plain,
            Picture,    // may stand behind \*
            Destination // likewise, and only where a group begins
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

    void PutBytes(QByteArrayView bytes, bool areAscii); // in the code page of the font or the document
    void PutAscii(QLatin1StringView text);
    void PutFontNames(QByteArrayView bytes, bool areAscii);
    void PutColors(QByteArrayView bytes);
    void PutCharacter(char32_t character); // that the present token stands for
    void Put(QStringView text);
    void FlushBytes();
    QString Decoded() const;
    QByteArrayView Gap() const; // line ends before the present token

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
    qsizetype m_depthBeyond = 0; // groups open that are too deep to have a state of their own
    bool m_isGroupStart = false; // \* and destinations have a meaning there only
    bool m_isIgnorable = false;  // behind that \*
    int m_skip = 0;              // fallback characters still to be passed over
    QByteArray m_bytes;          // not yet decoded, as a character may need more of them
    QByteArrayView m_code;       // what of the present token the sink has not got in another form
    int m_codePage = AnsiCodePage;
    QString m_instruction;
    QRgb m_color = 0; // the entry of the colour table that is being read
};
