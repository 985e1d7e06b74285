#include "app/dialogs/file_picker.h"

#include "files/path_text.h"
#include "widgets/screen_room.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace {

/// The toolkit takes its pattern from the last parentheses and, when told to hide details, shows what comes before
/// them: so the filter's own text appears letter for letter, including its own parentheses.
QString DialogFilter(const ks::CFileFilter& filter) {
    return QString::fromStdString(filter.text) + QStringLiteral(" (") + Wildcard(filter.pattern) + QLatin1Char(')');
}

QStringList DialogFilters(const std::vector<ks::CFileFilter>& filters) {
    QStringList texts;
    for (const ks::CFileFilter& filter : filters) texts.append(DialogFilter(filter));
    return texts;
}

QFileDialog::FileMode FileModeOf(const ks::CFileRequest& request) {
    if (request.kind == ks::CPickerKind::Save || !request.mustExist) return QFileDialog::AnyFile;
    return request.kind == ks::CPickerKind::OpenSeveral ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

void SetFilters(QFileDialog& dialog, const ks::CFileRequest& request) {
    if (request.filters.empty()) return;
    const QStringList texts = DialogFilters(request.filters);
    dialog.setNameFilters(texts);
    const bool isListed = request.filterIndex >= 1 && request.filterIndex <= texts.size();
    dialog.selectNameFilter(texts[isListed ? request.filterIndex - 1 : 0]);
}

/// Depending on the kind of dialog, the toolkit reports the filter by its own text or by that of the request.
int SelectedFilter(const QFileDialog& dialog, const ks::CFileRequest& request) {
    const QString selected = dialog.selectedNameFilter();
    for (std::size_t i = 0; i < request.filters.size(); ++i) {
        const ks::CFileFilter& filter = request.filters[i];
        if (selected == DialogFilter(filter) || selected == QString::fromStdString(filter.text)) {
            return static_cast<int>(i) + 1;
        }
    }
    return request.filterIndex;
}

QStringList NativePaths(const QStringList& paths) {
    QStringList native;
    for (const QString& path : paths) native.append(QDir::toNativeSeparators(path));
    return native;
}

}  // namespace

std::unique_ptr<QFileDialog> CFileDialogs::MakeDialog(QWidget* parent, const ks::CFileRequest& request, CStyle style) {
    auto dialog = std::make_unique<QFileDialog>(parent, QString::fromStdString(request.title),
                                                ExistingFolder(QString::fromStdString(request.folder)));
    dialog->setOption(QFileDialog::DontUseNativeDialog, style == CStyle::Drawn);
    dialog->setOption(QFileDialog::HideNameFilterDetails);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, !request.shouldAskBeforeOverwriting);
    dialog->setAcceptMode(request.kind == ks::CPickerKind::Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(FileModeOf(request));
    SetFilters(*dialog, request);
    dialog->setDefaultSuffix(QString::fromStdString(request.defaultExtension));
    if (!request.suggestedName.empty()) dialog->selectFile(QString::fromStdString(request.suggestedName));
    const QSize wanted =
        dialog->sizeHint().expandedTo(QSize(820, 500));  // Qt's own dialogs start too narrow for details
    dialog->resize(WithinScreen(wanted, *dialog));
    return dialog;
}

std::optional<CPickedFiles> CFileDialogs::Pick(QWidget* parent, const ks::CFileRequest& request) {
    const std::unique_ptr<QFileDialog> dialog = MakeDialog(parent, request, m_style);
    if (dialog->exec() != QDialog::Accepted || dialog->selectedFiles().isEmpty()) return std::nullopt;
    CPickedFiles picked;
    picked.paths = NativePaths(dialog->selectedFiles());
    picked.filterIndex = SelectedFilter(*dialog, request);
    return picked;
}

QString ExistingFolder(const QString& folder) {
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

QString DriveAndFolder(const QString& path) {
    const std::string text = path.toStdString();
    return QDir::toNativeSeparators(QString::fromStdString(std::string(ks::FolderOf(text))));
}

QString Wildcard(const std::string& pattern) {
    return pattern == "*.*" ? QStringLiteral("*") : QString::fromStdString(pattern);
}
