// The rich text box and its files.
#include "platform/richtext/richtextbox.h"
#include "platform/runtime/runtimeerror.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>

#include <csignal>

namespace {
const QByteArray
    g_rtf("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 Choir \\b 19:00\\b0\\par\\qc  bring   notes\\par}");

int NumberOfErrorIn(const std::function<void()>& step)
{
    try {
        step();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class RichTextBoxFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreReadAndWritten();
    void fileErrors();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();
};

void RichTextBoxFilesTest::filesAreReadAndWritten()
{
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("dayview.rtf"));
    RichTextBox box;
    box.SetTextRTF(g_rtf);
    box.SaveFile(path);
    QCOMPARE(ContentOf(path), g_rtf);

    RichTextBox other;
    other.SetText(QStringLiteral("before"));
    QTest::keyClicks(&other, QStringLiteral("typed"));
    other.LoadFile(path);
    QVERIFY(!other.Modified());
    QCOMPARE(other.Text(), box.Text());
    QCOMPARE(other.TextRTF(), g_rtf);
    QTest::keyClicks(&other, QStringLiteral("New "));
    other.SaveFile(path);
    box.LoadFile(path);
    QCOMPARE(box.Text(), QStringLiteral("New Choir 19:00\n bring   notes"));
}

void RichTextBoxFilesTest::fileErrors()
{
    QTemporaryDir directory;
    RichTextBox box;
    box.SetText(QStringLiteral("kept"));
    QCOMPARE(NumberOfErrorIn([&] { box.LoadFile(directory.filePath(QStringLiteral("none.rtf"))); }),
             errors::FileNotFound);
    QCOMPARE(NumberOfErrorIn([&] { box.LoadFile(directory.path()); }), errors::PathFileAccess);
    QCOMPARE(NumberOfErrorIn([&] { box.SaveFile(directory.path()); }), errors::PathFileAccess);
    QCOMPARE(NumberOfErrorIn([&] { box.SaveFile(directory.filePath(QStringLiteral("no/where.rtf"))); }),
             errors::PathFileAccess);
    QCOMPARE(box.Text(), QStringLiteral("kept"));
}

void RichTextBoxFilesTest::fullDiskLeavesTheOldFile_data()
{
    QTest::addColumn<int>("words");
    QTest::newRow("fails in the buffer") << 1500;
    QTest::newRow("falls short") << 20000;
}

void RichTextBoxFilesTest::fullDiskLeavesTheOldFile()
{
    QFETCH(int, words);
    QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("dayview.rtf"));
    RichTextBox box;
    box.SetTextRTF(g_rtf);
    box.SaveFile(path);
    box.SetText(QStringLiteral("long ").repeated(words));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{4096, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const int error = NumberOfErrorIn([&] { box.SaveFile(path); });
    setrlimit(RLIMIT_FSIZE, &before);
    QCOMPARE(error, errors::PathFileAccess);
    QCOMPARE(ContentOf(path), g_rtf);
}

QTEST_MAIN(RichTextBoxFilesTest)
#include "richtextboxfilestest.moc"
