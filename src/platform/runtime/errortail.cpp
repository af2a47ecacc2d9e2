#include "platform/runtime/errortail.h"

#include "platform/runtime/language.h"

#include <QFile>

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

bool g_bErrorTrap = false;
std::int16_t g_iErrCount = 0;
int g_iErrFile = -1;

void OpenErrorLog(const QString& path)
{
    CloseErrorLog();
    g_iErrCount = 0;
    g_iErrFile = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0644);
    if (g_iErrFile < 0) errors::RaiseAccess();
}

void CloseErrorLog()
{
    if (g_iErrFile >= 0) ::close(g_iErrFile);
    g_iErrFile = -1;
}

void LogError(const RunTimeError& error, QLatin1StringView literal)
{
    // The counter stops at its maximum and never overflows.
    if (g_iErrCount < INT16_MAX) ++g_iErrCount;
    if (g_iErrFile < 0) return;
    QString text = error.Description;
    text.replace(u'\n', u' ');
    const QByteArray line = QString(Str(g_iErrCount) + u':' + text + literal + u'\n').toUtf8();
    // A log on a full disk cannot be reported anywhere.
    [[maybe_unused]] const auto written = ::write(g_iErrFile, line.constData(), static_cast<std::size_t>(line.size()));
}

void ErrorTail::Log(const RunTimeError& error) const
{
    if (std::ranges::find(m_silentNumbers, error.Number) == m_silentNumbers.end()) LogError(error, m_literal);
}
