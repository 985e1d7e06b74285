#pragma once

#include <QApplication>
#include <QSettings>

#include <memory>
#include <string>
#include <vector>

class CMainFrame;
class CMessages;

/// The desktop program: tells the desktop its name, keeps numbers independent of the user's locale, and shows a
/// message for an otherwise uncaught exception instead of ending.
class CQuorvelApp : public QApplication {
    Q_OBJECT

public:
    /// Like QApplication's; removes the toolkit's own arguments from `argv`.
    CQuorvelApp(int& argc, char** argv);

    /// Reports exceptions that `notify` catches to `messages`; until then they propagate. `messages` must outlive the
    /// program.
    void SetMessages(CMessages& messages) { m_messages = &messages; }

    /// The program's own store of settings: per user, in the platform's form.
    static std::unique_ptr<QSettings> OpenSettings();

    /// The arguments after the program's name, UTF-8.
    static std::vector<std::string> ArgumentTexts();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    CMessages* m_messages = nullptr;
};

/// Starts what the arguments ask for in `frame`, which must already be shown. Without files, the file selection dialog
/// opens once the event loop runs. With files, the document's start-up run starts; it loads nothing and leaves the
/// window empty.
void InitInstance(CMainFrame& frame, const std::vector<std::string>& arguments);
