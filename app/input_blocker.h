#pragma once

#include <QObject>

/// While it lives, whatever the user does to a window of the program is dropped, closing included; the windows are
/// still painted. Only a modal message can be answered. For work that lets events through in between.
class CInputBlocker : public QObject {
    Q_OBJECT

public:
    CInputBlocker();
    ~CInputBlocker() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
};
