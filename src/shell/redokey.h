// Ctrl+Y is redo in every text of the program, beside the desktop's own key.
#pragma once

#include <QObject>

class RedoKey : public QObject
{
    Q_OBJECT

public:
    RedoKey(); // watches the keys of all windows

    bool eventFilter(QObject* watched, QEvent* event) override;
};
