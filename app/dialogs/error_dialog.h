#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "compare/document_host.h"

namespace ksres {

namespace Ui {
class CErrorDialog;
}

/// "Error and Warning Messages": the messages of a run in a read-only text that can be selected and copied.
class CErrorDialog : public QDialog {
    Q_OBJECT

public:
    explicit CErrorDialog(QWidget* parent = nullptr);
    ~CErrorDialog() override;

    /// Appends `message` and a line end to the text.
    void AddMessage(const std::string& message);
    /// All messages, each followed by CR LF; empty without any.
    const QString& Text() const { return m_text; }

    /// Appends the messages. Those about one file stand together under its path, in the platform's form, with an empty
    /// line before and after them.
    void AddMessages(const std::vector<CRunMessage>& messages);
    /// Shows the messages and waits until the user has closed the dialog; nothing without any.
    static void ShowMessages(const std::vector<CRunMessage>& messages, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<Ui::CErrorDialog> m_ui;
    QString m_text;
};

}  // namespace ksres
