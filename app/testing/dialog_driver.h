#pragma once

#include "app/dialogs/error_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>
#include <utility>

/// Plays the user for modal dialogs and menus that open while it lives, so that none of them can block a test: expected
/// ones get their answers in order, any other is closed, and problems are recorded.
class CDialogDriver : public QObject {
public:
    /// Caption of every modal dialog and title of every menu that opened, in order.
    QStringList opened;

    CDialogDriver() { qApp->installEventFilter(this); }
    ~CDialogDriver() override { qApp->removeEventFilter(this); }

    /// The next dialog or menu gets this answer, which must close it.
    void Expect(std::function<void(QWidget&)> answer) { m_answers.push_back(std::move(answer)); }

    /// What opened unexpectedly, stayed open, or failed to open since the last call.
    QStringList TakeFaults() {
        for (; !m_answers.empty(); m_answers.pop_front())
            m_faults.append(QStringLiteral("an expected one did not open"));
        return std::exchange(m_faults, {});
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && IsModal(watched)) {
            auto* const window = static_cast<QWidget*>(watched);
            opened.append(Name(*window));
            // Later: it must be open before it is answered.
            QTimer::singleShot(0, window, [this, window] { Answer(*window); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    /// Lists of errors have a watcher of their own.
    static bool IsModal(QObject* object) {
        if (qobject_cast<ksres::CErrorDialog*>(object) != nullptr) return false;
        if (qobject_cast<QMenu*>(object) != nullptr) return true;
        const auto* const dialog = qobject_cast<QDialog*>(object);
        return dialog != nullptr && dialog->isModal();
    }

    static QString Name(const QWidget& window) {
        const auto* const menu = qobject_cast<const QMenu*>(&window);
        return menu != nullptr ? menu->title() : window.windowTitle();
    }

    void Answer(QWidget& window) {
        if (m_answers.empty()) {
            m_faults.append(QStringLiteral("not expected: ") + Name(window));
        } else {
            const auto answer = std::move(m_answers.front());
            m_answers.pop_front();
            answer(window);
            if (window.isVisible()) m_faults.append(QStringLiteral("left open: ") + Name(window));
        }
        window.hide();  // not close, which the program may refuse
    }

    std::deque<std::function<void(QWidget&)>> m_answers;
    QStringList m_faults;
};
