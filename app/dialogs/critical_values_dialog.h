#pragma once

#include "compare/critical_values.h"

#include <QDialog>

#include <memory>
#include <vector>

class CMessages;
class QLineEdit;

namespace ksres {

namespace Ui {
class CCriticalValuesDlg;
}

/// "Edit Critical Values": edits a copy of the critical values. Any finite number is accepted.
class CCriticalValuesDlg : public QDialog {
    Q_OBJECT

public:
    /// Shows `values`. `messages` must outlive the dialog.
    CCriticalValuesDlg(const CCriticalValues& values, CMessages& messages, QWidget* parent = nullptr);
    ~CCriticalValuesDlg() override;

    /// The values given; after OK, the edited values.
    [[nodiscard]] const CCriticalValues& Values() const { return m_values; }

public slots:
    /// OK: stays open and focuses the first field, from the top, that does not hold a number.
    void accept() override;

private:
    struct CField {
        QLineEdit* edit;
        CCriticalValue limit;
    };

    void AddField(const CCriterion& criterion);

    std::unique_ptr<Ui::CCriticalValuesDlg> m_ui;
    std::vector<CField> m_fields;  ///< one per criterion, from top to bottom
    CCriticalValues m_values;
    CMessages& m_messages;
};

}  // namespace ksres
