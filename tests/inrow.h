// A test that walks a table says in which row a check failed, since the check itself shows its values alone.
#pragma once

#include <QTest>

class InRow
{
public:
    explicit InRow(const char* name) : m_name(name) {}
    explicit InRow(const QString& name) : m_name(name.toUtf8()) {}
    ~InRow()
    {
        if (QTest::currentTestFailed()) qInfo("in the row \"%s\"", m_name.constData());
    }
    Q_DISABLE_COPY_MOVE(InRow)

private:
    QByteArray m_name;
};
