#pragma once

#include <QLineEdit>

/// A value that cannot be edited, but be selected and copied; at least as wide as its text.
class CValueEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit CValueEdit(QWidget* parent = nullptr);

    void ShowText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};
