#pragma once

#include "app/dialogs/error_dialog.h"

#include <QApplication>
#include <QEvent>
#include <QStringList>
#include <QTimer>

/// While it lives, reads and closes at once every list of errors that opens.
class CErrorListWatcher : public QObject {
public:
    QStringList texts;        ///< of the lists that opened, in order
    bool wasWaiting = false;  ///< the wait cursor was shown while a list was open

    CErrorListWatcher() { qApp->installEventFilter(this); }
    ~CErrorListWatcher() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const dialog = event->type() == QEvent::Show ? qobject_cast<ksres::CErrorDialog*>(watched) : nullptr;
        if (dialog != nullptr) {
            texts.append(dialog->Text());
            if (QApplication::overrideCursor() != nullptr) wasWaiting = true;
            QTimer::singleShot(0, dialog, &QDialog::accept);
        }
        return QObject::eventFilter(watched, event);
    }
};
