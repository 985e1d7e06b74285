#pragma once

#include <QApplication>
#include <QSettings>
#include <memory>
#include <string>
#include <vector>

class CMainFrame;
class CMessages;

/// The desktop program: names itself to the desktop, keeps numbers out of the user's locale, and shows an exception
/// that escaped everything else instead of ending.
class CQuorvelApp : public QApplication {
    Q_OBJECT

public:
    /// As QApplication; removes the toolkit's own arguments from `argv`.
    CQuorvelApp(int& argc, char** argv);

    /// Where what `notify` catches is said; before, it is passed on. `messages` must outlive the program.
    void SetMessages(CMessages& messages) { m_messages = &messages; }

    /// The program's own store of settings: per user, in the platform's form.
    static std::unique_ptr<QSettings> OpenSettings();

    /// The arguments after the program's name, UTF-8.
    static std::vector<std::string> ArgumentTexts();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    CMessages* m_messages = nullptr;
};

/// Starts in `frame`, which was shown before, what the arguments ask for: without files the dialog that selects some
/// opens once the event loop runs; with files the document's start-up run, which loads nothing and leaves the window
/// empty.
void InitInstance(CMainFrame& frame, const std::vector<std::string>& arguments);
