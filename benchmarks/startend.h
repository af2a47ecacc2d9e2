// Ends the process of a measured start as soon as the month's last box is painted. With --memory it first prints its
// memory now and at its peak, in kilobytes.
#pragma once

#include <QTextEdit>

#include <functional>

class EndAfterPainting : public QObject
{
public:
    // Says whether a painted box is the last one.
    using Rule = std::function<bool(const QTextEdit&)>;
    explicit EndAfterPainting(Rule isLast);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Rule m_isLast;
    bool m_ending = false;
};
