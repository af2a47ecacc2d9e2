#include "platform/desktop/links.h"

#include <QUrl>
#include <QUrlQuery>

#include <algorithm>

namespace {
// A name before the host could look like another host.
bool HasHost(const QUrl& url)
{
    return !url.host().isEmpty() && url.userInfo().isEmpty();
}

// Some mail programs take files along that an address names.
bool IsMail(const QUrl& url)
{
    const auto isFile = [](const auto& item) { return item.first.startsWith("attach"_L1, Qt::CaseInsensitive); };
    return url.path().contains(u'@') && std::ranges::none_of(QUrlQuery(url).queryItems(), isFile);
}

bool IsFileHere(const QUrl& url)
{
    const bool isHere = url.host().isEmpty() || url.host() == "localhost"_L1;
    return isHere && url.path().startsWith(u'/') && !url.path().startsWith("//"_L1);
}

struct LinkKind
{
    QStringView scheme;
    bool (*isMeant)(const QUrl& url);
};
constexpr LinkKind LinkKinds[] = {
    {u"http", HasHost}, {u"https", HasHost}, {u"ftp", HasHost}, {u"mailto", IsMail}, {u"file", IsFileHere}};
} // namespace

bool links::MayOpen(const QString& address)
{
    const QUrl url(address);
    const auto isOf = [&](const LinkKind& kind) { return url.scheme() == kind.scheme && kind.isMeant(url); };
    return url.isValid() && std::ranges::any_of(LinkKinds, isOf);
}

QString links::Shown(const QString& address)
{
    constexpr qsizetype Longest = 100;
    const QString whole = QUrl(address).toString(QUrl::FullyEncoded);
    return whole.size() <= Longest ? whole : whole.first(Longest) + u"..."_s;
}
