// Texts as they lie in an old planner: of single or double bytes in a code page (Jet 3), or of 16 bits, with the upper
// half of some left out (Jet 4). Knows only QtCore.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

struct JetEncoding
{
    bool IsJet4 = false;
    int CodePage = 0;
};

// Nothing where the bytes are no text of the kind.
std::optional<QString> DecodeJetText(QByteArrayView bytes, const JetEncoding& encoding);

// A memo as planners hold it: rich text in the very bytes that the control of its time wrote, which tell their code
// page themselves; plain text in UTF-8.
std::optional<QByteArray> DecodeJetMemo(QByteArrayView bytes, const JetEncoding& encoding);
