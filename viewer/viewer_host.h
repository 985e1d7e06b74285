#pragma once

#include <QString>
#include <optional>

#include "files/file_request.h"

class QPrinter;
class QWidget;

/// What the file viewer asks of the program around it: the desktop program, a test. `parent` is the window above
/// which the question stands; it may be null.
class CViewerHost {
public:
    virtual ~CViewerHost() = default;

    /// Shows a sentence until the user has confirmed it.
    virtual void ShowError(QWidget* parent, const QString& text) = 0;
    /// Lets the user name a file to write, in the folder for ASCII output at first, and asks before one is replaced.
    /// No value: canceled.
    virtual std::optional<QString> AskSavePath(QWidget* parent, const ks::CFileRequest& request) = 0;
    /// Lets the user choose printer, paper and some of the `pageCount` pages; false: canceled.
    virtual bool AskPrinter(QWidget* parent, QPrinter& printer, int pageCount) = 0;
};
