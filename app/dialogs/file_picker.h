#pragma once

#include "files/file_request.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <string>

class QFileDialog;
class QWidget;

/// What the user chose in a picker.
struct CPickedFiles {
    QStringList paths;    ///< absolute, in native form; never empty
    int filterIndex = 1;  ///< the filter the user ended on, 1-based
};

/// Lets the user choose files. Tests replace it with a scripted one.
class CFilePicker {
public:
    virtual ~CFilePicker() = default;
    /// @return the choice; no value when the user canceled
    virtual std::optional<CPickedFiles> Pick(QWidget* parent, const ks::CFileRequest& request) = 0;
};

/// The platform's file dialogs.
class CFileDialogs : public CFilePicker {
public:
    enum class CStyle { Native, Drawn };

    /// Non-native dialogs are Qt's own; they can be driven without a screen.
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

/// The wildcard that does what users mean by `pattern`: "*.*" matches every file, even one without a dot.
QString Wildcard(const std::string& pattern);
