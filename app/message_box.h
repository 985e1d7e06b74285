#pragma once

#include <QString>

class QWidget;

/// Icon of a message box.
enum class CMessageIcon { Information, Warning, Error };

/// How the program gets the user's attention: message boxes and the beep. Tests replace it with a recorder.
class CMessages {
public:
    virtual ~CMessages() = default;

    /// Shows `text` above `parent` until the user confirms it.
    virtual void Show(QWidget* parent, CMessageIcon icon, const QString& caption, const QString& text) = 0;
    /// Sounds the default beep.
    virtual void Beep() = 0;

    /// Shows `text` with the caption that all errors of the program have.
    void ShowError(QWidget* parent, const QString& text);
};

/// Message boxes on the screen.
class CMessageBoxes : public CMessages {
public:
    void Show(QWidget* parent, CMessageIcon icon, const QString& caption, const QString& text) override;
    void Beep() override;
};
