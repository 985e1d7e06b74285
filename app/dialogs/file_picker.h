#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "compare/document_host.h"

class QFileDialog;
class QWidget;

/// What a picker is to choose.
enum class PickerKind { OpenOne, OpenSeveral, Save };

/// What a file picker is asked to do.
class CFileRequest {
public:
    PickerKind kind = PickerKind::OpenOne;
    QString title;
    std::vector<CFileFilter> filters;  ///< may be empty: every file
    int filterIndex = 1;               ///< filter at the start, 1-based; the first when out of range
    QString folder;                    ///< where to start; the home folder when it does not exist
    QString suggestedName;             ///< of the file to save, without a folder; may be empty
    QString defaultExtension;          ///< put behind a saved name that has none; none when empty
    bool fileMustExist = false;        ///< without effect when saving
    bool hideReadOnly = true;          ///< for dialogs with a read-only box; those of the toolkit have none
    bool askBeforeOverwriting = false;
};

/// What the user chose in a picker.
class CPickedFiles {
public:
    QStringList paths;    ///< absolute, in native form; never empty
    int filterIndex = 1;  ///< the filter the user ended on, 1-based
};

/// Lets the user choose files. Tests put a scripted one in its place.
class CFilePicker {
public:
    virtual ~CFilePicker() = default;
    /// No value: cancelled.
    virtual std::optional<CPickedFiles> Pick(QWidget* parent, const CFileRequest& request) = 0;
};

/// The file dialogs of the platform.
class CFileDialogs : public CFilePicker {
public:
    enum class Style { Native, Drawn };

    /// Drawn dialogs are Qt's own; they can be driven without a screen.
    explicit CFileDialogs(Style style = Style::Native) : m_style(style) {}
    std::optional<CPickedFiles> Pick(QWidget* parent, const CFileRequest& request) override;

    /// The dialog that Pick shows.
    static std::unique_ptr<QFileDialog> MakeDialog(QWidget* parent, const CFileRequest& request, Style style);

private:
    Style m_style;
};

/// `folder` when it exists, else the home folder.
QString ExistingFolder(const QString& folder);

/// What the settings remember of a chosen file: its drive and folder with the last separator, in native form.
QString DriveAndFolder(const QString& path);

/// The wildcard that does what users mean by `pattern`: "*.*" is every file, also one without a dot.
QString Wildcard(const std::string& pattern);
