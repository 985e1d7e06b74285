#include "app/input_blocker.h"

#include <QApplication>
#include <QEvent>

namespace {

bool IsFromUser(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

CInputBlocker::CInputBlocker() {
    QCoreApplication::instance()->installEventFilter(this);
}

CInputBlocker::~CInputBlocker() {
    QCoreApplication::instance()->removeEventFilter(this);
}

bool CInputBlocker::eventFilter(QObject* watched, QEvent* event) {
    // A message that has opened since waits for the user, and nothing else can be reached while it is open.
    const bool isMessageOpen = QApplication::activeModalWidget() != nullptr;
    if (isMessageOpen || !IsFromUser(event->type())) return QObject::eventFilter(watched, event);
    event->ignore();  // a close event that was filtered but not ignored would close the window
    return true;
}
