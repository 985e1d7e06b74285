#pragma once

#include <QLineEdit>

/// A value that can be selected and copied but not edited; at least as wide as its text.
class CValueEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit CValueEdit(QWidget* parent = nullptr);

    void ShowText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};
