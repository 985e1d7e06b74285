#pragma once

#include <QObject>

/// While it lives, discards all user input to the program's windows, including closing them; the windows are still
/// painted. Only a modal message can be answered. For work that processes events along the way.
class CInputBlocker : public QObject {
    Q_OBJECT

public:
    CInputBlocker();
    ~CInputBlocker() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};
