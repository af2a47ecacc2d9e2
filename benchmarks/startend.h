// The end of a start that is measured: as soon as the last box of the month is painted, the process ends. With --memory
// it first tells what it holds and has held at most, in kilobytes.
#pragma once

#include <QTextEdit>

#include <functional>

class EndAfterPainting : public QObject
{
public:
    // The rule says of a painted box whether it is the last one.
    using Rule = std::function<bool(const QTextEdit&)>;
    explicit EndAfterPainting(Rule isLast);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Rule m_isLast;
    bool m_ending = false;
};
