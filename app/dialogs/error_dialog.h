#pragma once

#include "compare/document_host.h"

#include <QDialog>
#include <QString>

#include <memory>
#include <string>
#include <vector>

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
    /// All messages, each followed by CR LF; empty without messages.
    [[nodiscard]] const QString& Text() const { return m_text; }

    /// Appends the messages. Messages about one file are grouped under its path, in native form, with an empty line
    /// before and after the group.
    void AddMessages(const std::vector<CRunMessage>& messages);
    /// Shows the messages and waits until the user closes the dialog; does nothing without messages.
    static void ShowMessages(const std::vector<CRunMessage>& messages, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<Ui::CErrorDialog> m_ui;
    QString m_text;
};

}  // namespace ksres
