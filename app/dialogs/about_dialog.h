#pragma once

#include <QDialog>
#include <QString>

#include <memory>

namespace Ui {
class CKsAboutDlg;
}

/// What the about box says about the program; either text may be missing.
struct CAboutTexts {
    QString title;    ///< application title
    QString version;  ///< product version
};

/// Title and version of this build.
CAboutTexts AboutTextsOfBuild();

/// One sentence on what the program is for, with the names of all pages.
QString AboutDescription();

/// "About: " and the title: the about box.
class CKsAboutDlg : public QDialog {
    Q_OBJECT

public:
    explicit CKsAboutDlg(const CAboutTexts& texts, QWidget* parent = nullptr);
    ~CKsAboutDlg() override;

private:
    std::unique_ptr<Ui::CKsAboutDlg> m_ui;
};
