#include "platform/engine/postgres/planneraddress.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <array>

namespace {
const QString PlannerName = u"planner"_s;

struct Parameter
{
    QLatin1StringView name;
    QLatin1StringView form; // a regular expression that the whole value must match
};

// One host: of two, either might have the planner. No options, files of keys or services: the writer of a link must not
// be able to choose what this machine sends. No password: links lie about on shared drives.
constexpr std::array Parameters = {
    Parameter{"host"_L1, "[A-Za-z0-9._:%-]{1,255}|/[^,\\x00-\\x1f]{0,100}"_L1},
    Parameter{"port"_L1, "[1-9][0-9]{0,4}"_L1},
    Parameter{"dbname"_L1, "[^\\x00-\\x1f=]{1,63}"_L1},
    Parameter{"user"_L1, "[^\\x00-\\x1f]{1,63}"_L1},
    Parameter{"sslmode"_L1, "disable|allow|prefer|require|verify-ca|verify-full"_L1},
    Parameter{"sslrootcert"_L1, "/[^\\x00-\\x1f]{1,255}"_L1},
    Parameter{"planner"_L1, "[a-z][a-z0-9_]{0,39}"_L1},
};

[[noreturn]] void Refuse(const QString& text)
{
    throw RunTimeError{engineerrors::NotADatabase, u"The address of the planner cannot be used: "_s + text};
}

[[noreturn]] void RefusePassword()
{
    Refuse(u"it holds a password, which everybody who sees the file could read. Please take it out; it "
           "belongs into your own password file (~/.pgpass)."_s);
}

std::string Quoted(QString value)
{
    value.replace(u'\\', "\\\\"_L1).replace(u'\'', "\\'"_L1);
    return '\'' + value.toStdString() + '\'';
}
} // namespace

PlannerAddress::PlannerAddress(const QString& uri)
{
    const QUrl url(uri, QUrl::StrictMode);
    if (!url.isValid() || (url.scheme() != u"postgresql" && url.scheme() != u"postgres"))
        Refuse(u"it is no address of the form postgresql://HOST/DATABASE."_s);
    if (!url.password().isEmpty() || url.userInfo().contains(u':')) RefusePassword();
    if (url.hasFragment()) Refuse(u"nothing may follow a '#'."_s);
    Take(u"host"_s, url.host());
    if (url.port() >= 0) Take(u"port"_s, QString::number(url.port()));
    Take(u"user"_s, url.userName(QUrl::FullyDecoded));
    Take(u"dbname"_s, url.path(QUrl::FullyDecoded).mid(1));
    for (const auto& [name, value] : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) {
        if (value.isEmpty()) Refuse(u"'%1' has no value."_s.arg(name));
        Take(name, value);
    }
    if (!m_values.contains(u"dbname"_s)) Refuse(u"it names no database."_s);
}

void PlannerAddress::Take(const QString& name, const QString& value)
{
    if (name == u"password") RefusePassword();
    const auto known = std::ranges::find(Parameters, name, &Parameter::name);
    if (known == Parameters.end()) Refuse(u"'%1' may not be given in it."_s.arg(name));
    if (value.isEmpty()) return;
    if (m_values.contains(name)) Refuse(u"'%1' is given twice."_s.arg(name));
    const QRegularExpression form(QRegularExpression::anchoredPattern(known->form));
    if (!form.match(value).hasMatch()) Refuse(u"'%1' is no %2."_s.arg(value, name));
    m_values[name] = value;
}

QString PlannerAddress::Uri() const
{
    QUrl url;
    url.setScheme(u"postgresql"_s);
    QUrlQuery query;
    for (const auto& [name, value] : m_values.asKeyValueRange()) {
        if (name == u"host" && !value.startsWith(u'/'))
            url.setHost(value);
        else if (name == u"user")
            url.setUserName(value, QUrl::DecodedMode);
        else if (name == u"dbname")
            url.setPath(u'/' + value, QUrl::DecodedMode);
        else if (name == u"port" && !m_values.value(u"host"_s).startsWith(u'/'))
            url.setPort(value.toInt());
        else
            query.addQueryItem(name, QString::fromLatin1(QUrl::toPercentEncoding(value, "/")));
    }
    url.setQuery(query);
    const QString text = QString::fromLatin1(url.toEncoded());
    // Without a host the form still needs its two slashes.
    return text.contains("://"_L1) ? text : QString(text).replace("postgresql:"_L1, "postgresql://"_L1);
}

QString PlannerAddress::Server() const
{
    const QString host = m_values.value(u"host"_s, u"localhost"_s);
    QString server = host.toLower() + u':' + m_values.value(u"port"_s, u"5432"_s);
    for (const QString& name : {u"user"_s, u"sslmode"_s, u"sslrootcert"_s}) {
        if (m_values.contains(name)) server += u' ' + name + u'=' + m_values.value(name);
    }
    return server;
}

QString PlannerAddress::Planner() const
{
    return m_values.value(PlannerName, PlannerName);
}

QString PlannerAddress::Schema() const
{
    return "orrelin_"_L1 + Planner();
}

std::string PlannerAddress::Connection() const
{
    std::string text;
    for (const auto& [name, value] : m_values.asKeyValueRange())
        if (name != PlannerName) text += name.toStdString() + '=' + Quoted(value) + ' ';
    return text;
}
