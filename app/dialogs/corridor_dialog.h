#pragma once

#include <QDialog>

#include <memory>

class CMessages;
namespace Ui {
class CCorridorDlg;
}

/// "Enter Corridor Size": edits the half-width of the residual corridor.
class CCorridorDlg : public QDialog {
    Q_OBJECT

public:
    /// Shows `size`. `messages` must outlive the dialog.
    CCorridorDlg(double size, CMessages& messages, QWidget* parent = nullptr);
    ~CCorridorDlg() override;

    /// The size as last read from the dialog: > 0 and finite after the dialog was closed with OK.
    [[nodiscard]] double Size() const { return m_size; }

public slots:
    /// OK: stays open unless the field holds a number > 0.
    void accept() override;

private:
    std::unique_ptr<Ui::CCorridorDlg> m_ui;
    double m_size;
    CMessages& m_messages;
};
