#pragma once

#include "files/file_request.h"

#include <QString>

#include <optional>

class QPrinter;
class QWidget;

/// What the file viewer asks of the program around it: the desktop program or a test. The question opens above
/// `parent`, which may be null.
class CViewerHost {
public:
    virtual ~CViewerHost() = default;

    /// Shows a sentence until the user confirms it.
    virtual void ShowError(QWidget* parent, const QString& text) = 0;
    /// Lets the user name a file to write, starting in the folder for ASCII output; asks before replacing a file.
    /// No value when the user canceled.
    virtual std::optional<QString> AskSavePath(QWidget* parent, const ks::CFileRequest& request) = 0;
    /// Lets the user choose printer, paper, and a range of the `pageCount` pages; false when the user canceled.
    virtual bool AskPrinter(QWidget* parent, QPrinter& printer, int pageCount) = 0;
};
