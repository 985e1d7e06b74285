#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QStringList>
#include <QWidget>

/// The control of `parent` with the number `controlId`; null when there is none, and the test that uses it fails.
template <class Widget>
Widget* Control(const QWidget& parent, int controlId) {
    const auto widgets = parent.findChildren<Widget*>();
    for (Widget* const widget : widgets) {
        if (widget->property("controlId") == controlId) return widget;
    }
    return nullptr;
}

/// Drags `data` over `target`, a widget or a window, and drops it at `position`; returns the accepted action.
inline Qt::DropAction SendDrop(QObject& target, const QMimeData& data, const QPoint& position) {
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(position, offered, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return Qt::IgnoreAction;  // a refused drag is never dropped
    QDragMoveEvent move(position, offered, &data, Qt::LeftButton, Qt::NoModifier);
    move.setDropAction(enter.dropAction());  // as Qt does: accepted once, accepted everywhere, unless refused
    move.accept();
    QApplication::sendEvent(&target, &move);
    if (!move.isAccepted()) return Qt::IgnoreAction;
    QDropEvent drop(position, offered, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

/// The texts of labels and buttons that `window` cuts off at its current size.
inline QStringList CutOffTexts(const QWidget& window) {
    QStringList texts;
    const auto labels = window.findChildren<QLabel*>();
    for (const QLabel* const label : labels) {
        if (label->isHidden()) continue;
        const int height = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        const bool isTooNarrow = !label->wordWrap() && label->width() < label->sizeHint().width();
        if (isTooNarrow || label->height() < height) texts.append(label->text());
    }
    const auto buttons = window.findChildren<QAbstractButton*>();
    for (const QAbstractButton* const button : buttons) {
        const bool isTooSmall = button->width() < button->minimumSizeHint().width() ||
                                button->height() < button->minimumSizeHint().height();
        if (button->isVisible() && isTooSmall) texts.append(button->text());
    }
    return texts;
}
