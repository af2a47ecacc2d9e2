#include "platform/desktop/openlink.h"

#include "platform/desktop/links.h"

#include <QDesktopServices>
#include <QMimeDatabase>

#include <algorithm>

namespace {
// What a desktop would run instead of showing it.
constexpr const char16_t* Programs[] = {
    u"application/x-executable",  u"application/x-sharedlib",    u"application/x-desktop",
    u"application/x-shellscript", u"application/x-java-archive", u"application/x-ms-dos-executable",
    u"application/x-msi",         u"application/vnd.appimage",   u"application/x-java-jnlp-file",
    u"application/x-ms-shortcut"};

bool IsProgram(const QUrl& url)
{
    if (!url.isLocalFile()) return false;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(url.toLocalFile());
    return std::ranges::any_of(Programs, [&](auto name) { return type.inherits(QString::fromUtf16(name)); });
}
} // namespace

bool links::Open(const QString& address)
{
    QUrl url(address);
    if (!MayOpen(address)) return false;
    if (url.scheme() == "file"_L1) url.setHost({});
    if (IsProgram(url)) return false;
    return g_openerOfTest ? g_openerOfTest(url) : QDesktopServices::openUrl(url);
}
