// Texts of an old planner: single or double bytes in a code page (Jet 3), or 16 bits, some with the upper half left out
// (Jet 4). Depends on QtCore alone.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

struct JetEncoding
{
    bool IsJet4 = false;
    int CodePage = 0;
};

// None if the bytes are not valid in this encoding.
std::optional<QString> DecodeJetText(QByteArrayView bytes, const JetEncoding& encoding);

// A memo as planners store it. Rich text: the exact bytes that its control wrote, which name their own code page. Plain
// text: UTF-8.
std::optional<QByteArray> DecodeJetMemo(QByteArrayView bytes, const JetEncoding& encoding);
