#include "app/dialogs/about_dialog.h"

#include "app/resources.h"
#include "app/ui_about_dialog.h"
#include "compare/plots/page_table.h"

#include <QCoreApplication>
#include <QIcon>
#include <QStringList>

#include <cstdint>
#include <memory>

namespace {

constexpr int kIconSize = 64;

QString QuotedPageNames() {
    QStringList names;
    for (const std::int32_t id : PageIds()) {
        names.append(QStringLiteral("'%1'").arg(QString::fromUtf8(PageName(id))));
    }
    return names.join(QStringLiteral(", "));
}

}  // namespace

CAboutTexts AboutTextsOfBuild() {
    return {QStringLiteral("Quorvel"), QStringLiteral(QUORVEL_VERSION)};
}

QString AboutDescription() {
    //: %1 is the list of all pages, each in single quotes
    const QString sentence = QCoreApplication::translate(
        "CKsAboutDlg",
        "Quorvel compares computed crash-test signals with a reference signal and shows how closely they agree on the "
        "pages %1, ...");
    return sentence.arg(QuotedPageNames());
}

CKsAboutDlg::CKsAboutDlg(const CAboutTexts& texts, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CKsAboutDlg>()) {
    m_ui->setupUi(this);
    const QString title = texts.title.isEmpty() ? tr("No Application Title") : texts.title;
    setWindowTitle(tr("About: %1").arg(title));
    m_ui->titleLabel->setText(title);
    m_ui->versionLabel->setText(tr("Version: %1").arg(texts.version.isEmpty() ? tr("No Version") : texts.version));
    m_ui->descriptionLabel->setText(AboutDescription());
    m_ui->iconLabel->setPixmap(ApplicationIcon().pixmap(QSize(kIconSize, kIconSize), devicePixelRatio()));
}

CKsAboutDlg::~CKsAboutDlg() = default;
