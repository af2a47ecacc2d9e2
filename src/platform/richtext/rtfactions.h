// What the control words do to the machine that reads them. For the table of the words alone.
#pragma once

#include "platform/richtext/rtfmachine.h"
#include "platform/richtext/rtfpicture.h"
#include "platform/richtext/rtfsymbols.h"

#include <algorithm>
#include <utility>

struct RtfMachine::Actions
{
    using Machine = RtfMachine;

    static bool IsOn(const RtfToken& word) { return word.ParameterOr(1) != 0; }

    // Groups.

    static void Enter(Machine& machine, int destination, const RtfToken&)
    {
        machine.Enter(static_cast<Destination>(destination));
    }

    static void ReadPicture(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_wantsCodes) return;
        const RtfPicture picture = ReadRtfPicture(machine.m_tokenizer, word.bytes);
        const bool isHidden = machine.m_state.character.styles.testFlag(RtfStyle::Hidden);
        if (picture.hasData && !isHidden) machine.m_sink.Picture(picture, machine.Character());
    }

    // An object that shows itself by a picture is kept whole, for its data; of another there is only the text that it
    // shows. Objects within it hold no picture either, so they are not looked through again.
    static void ReadObject(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_wantsCodes || std::exchange(machine.m_state.isInObject, true)) return;
        RtfTokenizer ahead = machine.m_tokenizer;
        const RtfPicture picture = ReadRtfPicture(ahead, word.bytes);
        if (!picture.hasData || !machine.TakesText()) return;
        machine.m_tokenizer = ahead;
        machine.m_sink.Picture(picture, machine.Character());
    }

    static void BeginField(Machine& machine, int, const RtfToken&) { machine.m_state.isField = true; }

    // Characters.

    static void PutCharacter(Machine& machine, int character, const RtfToken&)
    {
        machine.PutCharacter(static_cast<char32_t>(character));
    }

    // A signed 16-bit number by rights; some write it unsigned, and some a whole code point.
    static void PutUnicode(Machine& machine, int, const RtfToken& word)
    {
        machine.m_skip = machine.m_state.fallbackLength;
        const auto whole = static_cast<char32_t>(word.parameter);
        const auto unit = static_cast<char16_t>(word.parameter);
        if (word.parameter > 0xFFFF && whole <= QChar::LastValidCodePoint) return machine.PutCharacter(whole);
        const bool isSymbol = machine.m_state.destination == Body && IsPrivateSymbol(unit);
        const RtfSymbols* const symbols =
            isSymbol ? machine.m_tables.fonts.SymbolsAt(machine.Character().font) : nullptr;
        if (!symbols) return machine.PutCharacter(unit);
        machine.m_code = {};
        const char byte = static_cast<char>(unit);
        machine.Put(DecodeSymbols(QByteArrayView(&byte, 1), *symbols));
    }

    static void SetFallbackLength(Machine& machine, int, const RtfToken& word)
    {
        constexpr int Longest = 255;
        machine.m_state.fallbackLength = std::clamp(word.ParameterOr(1), 0, Longest);
    }

    static void EndParagraph(Machine& machine, int, const RtfToken&) { machine.EndParagraph(&RtfSink::EndParagraph); }
    static void EndPage(Machine& machine, int, const RtfToken&) { machine.EndParagraph(&RtfSink::EndPage); }
    static void EndRow(Machine& machine, int, const RtfToken&) { machine.EndParagraph(&RtfSink::EndRow); }
    static void EndCell(Machine& machine, int, const RtfToken&)
    {
        if (machine.m_state.destination == Body) machine.m_sink.EndCell();
    }

    // Tables.

    static void SetCodePage(Machine& machine, int codePage, const RtfToken& word)
    {
        machine.m_codePage = codePage ? codePage : word.parameter;
    }

    static void SetDefaultFont(Machine& machine, int, const RtfToken& word)
    {
        machine.m_tables.fonts.SetDefault(word.parameter);
    }

    static void SetFontCharset(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_state.destination == FontTable) machine.m_tables.fonts.SetCharset(word.parameter);
    }

    static void SetFontCodePage(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_state.destination == FontTable) machine.m_tables.fonts.SetCodePage(word.parameter);
    }

    static void SetColorPart(Machine& machine, int shift, const RtfToken& word)
    {
        constexpr QRgb IsGiven = 0xFF000000;
        const QRgb part = static_cast<QRgb>(std::clamp(word.parameter, 0, 255));
        machine.m_color = (machine.m_color & ~(QRgb{255} << shift)) | (part << shift) | IsGiven;
    }

    // Formats of characters.

    static void SetPlain(Machine& machine, int, const RtfToken&)
    {
        machine.m_state.character = {.link = machine.m_state.character.link};
    }

    static void SetFont(Machine& machine, int, const RtfToken& word)
    {
        if (machine.m_state.destination == FontTable)
            machine.m_tables.fonts.Begin(word.parameter);
        else
            machine.m_state.character.font = machine.m_tables.fonts.PlaceOf(word.parameter);
    }

    static void SetFontSize(Machine& machine, int, const RtfToken& word)
    {
        const int size = word.parameter > 0 ? word.parameter : RtfCharacter::DefaultHalfPoints;
        machine.m_state.character.halfPoints = std::min(size, RtfCharacter::MaximumHalfPoints);
    }

    static void SetStyle(Machine& machine, int style, const RtfToken& word)
    {
        machine.m_state.character.styles.setFlag(static_cast<RtfStyle>(style), IsOn(word));
    }

    static void SetUnderline(Machine& machine, int place, const RtfToken& word)
    {
        machine.m_state.character.underline = static_cast<quint8>(IsOn(word) ? place : 0);
    }

    static void SetVertical(Machine& machine, int alignment, const RtfToken& word)
    {
        machine.m_state.character.vertical = static_cast<quint8>(IsOn(word) ? alignment : 0);
    }

    static void SetRise(Machine& machine, int sign, const RtfToken& word)
    {
        constexpr int Usual = 6, Most = RtfCharacter::MaximumHalfPoints;
        machine.m_state.character.rise = sign * std::clamp(word.ParameterOr(Usual), -Most, Most);
    }

    static void SetColor(Machine& machine, int, const RtfToken& word)
    {
        machine.m_state.character.color = ColorAt(machine, word.parameter);
    }

    static void SetBackground(Machine& machine, int, const RtfToken& word)
    {
        machine.m_state.character.background = ColorAt(machine, word.parameter);
    }

    static QRgb ColorAt(const Machine& machine, int number)
    {
        const std::vector<QRgb>& colors = machine.m_tables.colors;
        return number >= 0 && static_cast<std::size_t>(number) < colors.size() ? colors[number] : 0;
    }

    // Formats of paragraphs.

    static void SetParagraphPlain(Machine& machine, int, const RtfToken&)
    {
        machine.m_state.paragraph = {};
        machine.m_state.tabType = QTextOption::LeftTab;
    }

    static void SetAlignment(Machine& machine, int alignment, const RtfToken&)
    {
        machine.m_state.paragraph.alignment = Qt::Alignment::fromInt(alignment);
    }

    static void SetDirection(Machine& machine, int isRightToLeft, const RtfToken&)
    {
        machine.m_state.paragraph.isRightToLeft = isRightToLeft;
    }

    static void SetMeasure(Machine& machine, int measure, const RtfToken& word)
    {
        machine.m_state.paragraph.measures[measure] = RtfMeasures[measure].Bounded(word.parameter);
    }

    static void SetLineSpacing(Machine& machine, int, const RtfToken& word)
    {
        constexpr int Most = RtfParagraph::Furthest;
        machine.m_state.paragraph.lineSpacing = std::clamp(word.parameter, -Most, Most);
    }

    static void SetLineMultiple(Machine& machine, int, const RtfToken& word)
    {
        machine.m_state.paragraph.isLineMultiple = IsOn(word);
    }

    static void SetTabType(Machine& machine, int type, const RtfToken&)
    {
        machine.m_state.tabType = static_cast<QTextOption::TabType>(type);
    }

    static void AddTab(Machine& machine, int, const RtfToken& word)
    {
        const auto type = std::exchange(machine.m_state.tabType, QTextOption::LeftTab);
        QList<QTextOption::Tab>& tabs = machine.m_state.paragraph.tabs;
        if (tabs.size() >= RtfParagraph::MaximumTabs) return;
        tabs.append(QTextOption::Tab(std::clamp(word.parameter, 0, RtfParagraph::Furthest), type));
    }
};
