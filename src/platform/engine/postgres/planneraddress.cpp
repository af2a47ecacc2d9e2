#include "platform/engine/postgres/planneraddress.h"

#include "platform/engine/engineerrors.h"
#include "platform/runtime/runtimeerror.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <array>

namespace {
const QString PlannerName = QStringLiteral("planner");

struct Parameter
{
    QLatin1StringView name;
    QLatin1StringView form; // a regular expression that the whole value must match
};

// One host: of two, either might have the planner. No options, files of keys or services, since whoever writes a link
// must not be able to choose what is sent from this machine; no password, since links lie about on shared drives.
constexpr std::array Parameters = {
    Parameter{QLatin1StringView("host"), QLatin1StringView("[A-Za-z0-9._:%-]{1,255}|/[^,\\x00-\\x1f]{0,100}")},
    Parameter{QLatin1StringView("port"), QLatin1StringView("[1-9][0-9]{0,4}")},
    Parameter{QLatin1StringView("dbname"), QLatin1StringView("[^\\x00-\\x1f=]{1,63}")},
    Parameter{QLatin1StringView("user"), QLatin1StringView("[^\\x00-\\x1f]{1,63}")},
    Parameter{QLatin1StringView("sslmode"), QLatin1StringView("disable|allow|prefer|require|verify-ca|verify-full")},
    Parameter{QLatin1StringView("sslrootcert"), QLatin1StringView("/[^\\x00-\\x1f]{1,255}")},
    Parameter{QLatin1StringView("planner"), QLatin1StringView("[a-z][a-z0-9_]{0,39}")},
};

[[noreturn]] void Refuse(const QString& text)
{
    throw RunTimeError{engineerrors::NotADatabase,
                       QStringLiteral("The address of the planner cannot be used: ") + text};
}

[[noreturn]] void RefusePassword()
{
    Refuse(QStringLiteral("it holds a password, which everybody who sees the file could read. Please take it out; it "
                          "belongs into your own password file (~/.pgpass)."));
}

std::string Quoted(QString value)
{
    value.replace(u'\\', QLatin1StringView("\\\\")).replace(u'\'', QLatin1StringView("\\'"));
    return '\'' + value.toStdString() + '\'';
}
} // namespace

PlannerAddress::PlannerAddress(const QString& uri)
{
    const QUrl url(uri, QUrl::StrictMode);
    if (!url.isValid() || (url.scheme() != u"postgresql" && url.scheme() != u"postgres"))
        Refuse(QStringLiteral("it is no address of the form postgresql://HOST/DATABASE."));
    if (!url.password().isEmpty() || url.userInfo().contains(u':')) RefusePassword();
    if (url.hasFragment()) Refuse(QStringLiteral("nothing may follow a '#'."));
    Take(QStringLiteral("host"), url.host());
    if (url.port() >= 0) Take(QStringLiteral("port"), QString::number(url.port()));
    Take(QStringLiteral("user"), url.userName(QUrl::FullyDecoded));
    Take(QStringLiteral("dbname"), url.path(QUrl::FullyDecoded).mid(1));
    for (const auto& [name, value] : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) {
        if (value.isEmpty()) Refuse(QStringLiteral("'%1' has no value.").arg(name));
        Take(name, value);
    }
    if (!m_values.contains(QStringLiteral("dbname"))) Refuse(QStringLiteral("it names no database."));
}

void PlannerAddress::Take(const QString& name, const QString& value)
{
    if (name == u"password") RefusePassword();
    const auto known = std::ranges::find(Parameters, name, &Parameter::name);
    if (known == Parameters.end()) Refuse(QStringLiteral("'%1' may not be given in it.").arg(name));
    if (value.isEmpty()) return;
    if (m_values.contains(name)) Refuse(QStringLiteral("'%1' is given twice.").arg(name));
    const QRegularExpression form(QRegularExpression::anchoredPattern(known->form));
    if (!form.match(value).hasMatch()) Refuse(QStringLiteral("'%1' is no %2.").arg(value, name));
    m_values[name] = value;
}

QString PlannerAddress::Uri() const
{
    QUrl url;
    url.setScheme(QStringLiteral("postgresql"));
    QUrlQuery query;
    for (const auto& [name, value] : m_values.asKeyValueRange()) {
        if (name == u"host" && !value.startsWith(u'/'))
            url.setHost(value);
        else if (name == u"user")
            url.setUserName(value, QUrl::DecodedMode);
        else if (name == u"dbname")
            url.setPath(u'/' + value, QUrl::DecodedMode);
        else if (name == u"port" && !m_values.value(QStringLiteral("host")).startsWith(u'/'))
            url.setPort(value.toInt());
        else
            query.addQueryItem(name, QString::fromLatin1(QUrl::toPercentEncoding(value, "/")));
    }
    url.setQuery(query);
    const QString text = QString::fromLatin1(url.toEncoded());
    // Without a host the form still needs its two slashes.
    return text.contains(QLatin1StringView("://"))
               ? text
               : QString(text).replace(QLatin1StringView("postgresql:"), QLatin1StringView("postgresql://"));
}

QString PlannerAddress::Server() const
{
    const QString host = m_values.value(QStringLiteral("host"), QStringLiteral("localhost"));
    QString server = host.toLower() + u':' + m_values.value(QStringLiteral("port"), QStringLiteral("5432"));
    for (const QString& name : {QStringLiteral("user"), QStringLiteral("sslmode"), QStringLiteral("sslrootcert")}) {
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
    return QLatin1StringView("orrelin_") + Planner();
}

std::string PlannerAddress::Connection() const
{
    std::string text;
    for (const auto& [name, value] : m_values.asKeyValueRange())
        if (name != PlannerName) text += name.toStdString() + '=' + Quoted(value) + ' ';
    return text;
}
