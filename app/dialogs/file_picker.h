#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>

#include "files/file_request.h"

class QFileDialog;
class QWidget;

/// What the user chose in a picker.
struct CPickedFiles {
    QStringList paths;    ///< absolute, in native form; never empty
    int filterIndex = 1;  ///< the filter the user ended on, 1-based
};

/// Lets the user choose files. Tests put a scripted one in its place.
class CFilePicker {
public:
    virtual ~CFilePicker() = default;
    /// No value: cancelled.
    virtual std::optional<CPickedFiles> Pick(QWidget* parent, const ks::CFileRequest& request) = 0;
};

/// The file dialogs of the platform.
class CFileDialogs : public CFilePicker {
public:
    enum class CStyle { Native, Drawn };

    /// Drawn dialogs are Qt's own; they can be driven without a screen.
    explicit CFileDialogs(CStyle style = CStyle::Native) : m_style(style) {}
    std::optional<CPickedFiles> Pick(QWidget* parent, const ks::CFileRequest& request) override;

    /// The dialog that Pick shows.
    static std::unique_ptr<QFileDialog> MakeDialog(QWidget* parent, const ks::CFileRequest& request, CStyle style);

private:
    CStyle m_style;
};

/// `folder` when it exists, else the home folder.
QString ExistingFolder(const QString& folder);

/// What the settings remember of a chosen file: its drive and folder with the last separator, in native form.
QString DriveAndFolder(const QString& path);

/// The wildcard that does what users mean by `pattern`: "*.*" is every file, also one without a dot.
QString Wildcard(const std::string& pattern);
