#pragma once

#include "app/message_box.h"

#include <QStringList>

/// Records the program's messages, each as "icon|caption|text" or "beep", in order.
class CRecordedMessages : public CMessages {
public:
    QStringList said;

    void Show(QWidget*, CMessageIcon icon, const QString& caption, const QString& text) override {
        static const QStringList icons = {QStringLiteral("information"), QStringLiteral("warning"),
                                          QStringLiteral("error")};
        said.append(icons[static_cast<qsizetype>(icon)] + QLatin1Char('|') + caption + QLatin1Char('|') + text);
    }
    void Beep() override { said.append(QStringLiteral("beep")); }
};
