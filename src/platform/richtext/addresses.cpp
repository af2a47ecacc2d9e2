#include "platform/richtext/addresses.h"

#include "platform/desktop/links.h"
#include "platform/richtext/rtffield.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace {
struct AddressForm
{
    QRegularExpression form; // of the whole address
    QString prefix;          // that its target has before it
};

const std::array<AddressForm, 3>& AddressForms()
{
    constexpr auto AnyCase = QRegularExpression::CaseInsensitiveOption;
    static const std::array<AddressForm, 3> forms{
        AddressForm{QRegularExpression(uR"(^(https?|ftp)://[\p{L}\p{N}\[].*|^file://.+|^mailto:[^@]+@.+)"_s, AnyCase),
                    {}},
        AddressForm{QRegularExpression(uR"(^www\.[\p{L}\p{N}-]+(\.[\p{L}\p{N}-]+)*\.\p{L}{2,}([:/?#].*)?$)"_s, AnyCase),
                    u"http://"_s},
        AddressForm{
            QRegularExpression(uR"(^[\p{L}\p{N}_.+%'-]+@[\p{L}\p{N}][\p{L}\p{N}-]*(\.[\p{L}\p{N}-]+)*\.\p{L}{2,}$)"_s,
                               AnyCase),
            u"mailto:"_s}};
    return forms;
}

bool EndsWord(QChar one)
{
    return one.isSpace() || one == QChar::ObjectReplacementCharacter;
}

// A bracket that closes one opened before belongs to the address.
bool IsPunctuation(QStringView address)
{
    static constexpr QStringView Signs = u".,;:!?'*\u2026\u2019";
    static constexpr QStringView Closing = u")]}", Opening = u"([{";
    const QChar last = address.back();
    const qsizetype bracket = Closing.indexOf(last);
    if (bracket >= 0) return address.count(last) > address.count(Opening[bracket]);
    return Signs.contains(last);
}

// Tells most words at once.
bool MayBeAddress(QStringView text)
{
    return text.contains(u':') || text.contains(u'@') || text.contains("www."_L1, Qt::CaseInsensitive);
}

// The part of a word that may be an address.
QStringView Core(const QString& word)
{
    static const QRegularExpression start(uR"((?<![\p{L}\p{N}])(https?://|ftp://|file://|mailto:|www\.))"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    static constexpr QStringView Quotes = u"<>\"\u201C\u201D\u201E\u00AB\u00BB\u2039\u203A", Openers = u"([{'\u2018";
    QStringView core = word;
    if (const auto match = start.match(word); match.hasMatch()) core = core.sliced(match.capturedStart());
    while (!core.isEmpty() && (Quotes.contains(core.front()) || Openers.contains(core.front())))
        core = core.sliced(1);
    core = core.first(std::ranges::find_if(core, [](QChar one) { return Quotes.contains(one); }) - core.begin());
    while (!core.isEmpty() && IsPunctuation(core))
        core.chop(1);
    return core;
}
} // namespace

QString TargetOf(const QString& text)
{
    if (!MayBeAddress(text) || text.size() > LongestLink || std::ranges::any_of(text, EndsWord)) return {};
    for (const auto& [form, prefix] : AddressForms()) {
        if (!form.match(text).hasMatch()) continue;
        const QString target = prefix + text;
        if (links::MayOpen(target)) return target;
    }
    return {};
}

QList<Address> AddressesIn(QStringView text)
{
    QList<Address> found;
    for (auto begin = text.begin(); begin != text.end();) {
        const auto end = std::find_if(begin, text.end(), EndsWord);
        const QString word = QStringView(begin, end).toString();
        const qsizetype place = begin - text.begin();
        begin = std::find_if_not(end, text.end(), EndsWord);
        if (!MayBeAddress(word) || word.size() > LongestLink) continue;
        const QStringView core = Core(word);
        const QString target = TargetOf(core.toString());
        if (!target.isEmpty()) found.append({place + (core.begin() - QStringView(word).begin()), core.size(), target});
    }
    return found;
}
