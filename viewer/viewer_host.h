#pragma once

#include <QString>
#include <optional>
#include <vector>

class QPrinter;
class QWidget;

/// One entry of a save picker's filter list.
struct CViewerFilter {
    QString text;     ///< as shown, letter for letter: "ASCI Files (*.txt)"
    QString pattern;  ///< "*.txt"; "*.*" is every file
};

/// What the save picker of the viewer is asked to do.
struct CViewerSaveRequest {
    QString title;
    std::vector<CViewerFilter> filters;
    QString suggestedName;     ///< without a folder
    QString defaultExtension;  ///< "txt": appended to a name without an extension, before overwriting is asked about
};

/// What the file viewer asks of the program around it: the desktop program, a test. `parent` is the window above
/// which the question stands; it may be null.
class CViewerHost {
public:
    virtual ~CViewerHost() = default;

    /// Shows a sentence until the user has confirmed it.
    virtual void ShowError(QWidget* parent, const QString& text) = 0;
    /// Lets the user name a file to write, in the folder for ASCII output at first, and asks before one is replaced.
    /// No value: canceled.
    virtual std::optional<QString> AskSavePath(QWidget* parent, const CViewerSaveRequest& request) = 0;
    /// Lets the user choose printer, paper and some of the `pageCount` pages; false: canceled.
    virtual bool AskPrinter(QWidget* parent, QPrinter& printer, int pageCount) = 0;
};
