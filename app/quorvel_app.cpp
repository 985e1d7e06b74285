#include "app/quorvel_app.h"

#include "app/command_info.h"
#include "app/commands.h"
#include "app/main_frame.h"
#include "app/message_box.h"
#include "app/resources.h"
#include "app/settings.h"
#include "widgets/messages.h"

#include <QTimer>
#include <QWindow>

#include <clocale>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>
#ifdef _WIN32
#include <windows.h>
// After windows.h, which it needs.
#include <shobjidl.h>
#endif

namespace {

/// Does something once, when a window is on the screen and the window manager has placed it.
class CWhenExposed : public QObject {
public:
    CWhenExposed(QWindow& window, std::function<void()> act) : QObject(&window), m_act(std::move(act)) {
        window.installEventFilter(this);
        if (window.isExposed()) Act();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* const window = qobject_cast<QWindow*>(watched);
        if (event->type() == QEvent::Expose && window != nullptr && window->isExposed()) Act();
        return QObject::eventFilter(watched, event);
    }

private:
    void Act() {
        parent()->removeEventFilter(this);
        QTimer::singleShot(0, parent(), std::move(m_act));
        deleteLater();
    }

    std::function<void()> m_act;
};

void NameApplicationToShell() {
#ifdef _WIN32
    // Frozen: pins and jump lists on users' machines refer to it.
    SetCurrentProcessExplicitAppUserModelID(L"Quorvel.AppID.v4.0.0.0");
#endif
}

}  // namespace

CQuorvelApp::CQuorvelApp(int& argc, char** argv) : QApplication(argc, argv) {
    // The application adopted the user's locale, which numbers in files must not follow. QLocale keeps it.
    std::setlocale(LC_NUMERIC, "C");
    NameApplicationToShell();
    setOrganizationName(QLatin1String(CSettings::kOrganization));
    setApplicationName(QLatin1String(CSettings::kApplication));
    setDesktopFileName(QStringLiteral("quorvel"));
    setWindowIcon(ApplicationIcon());
}

std::unique_ptr<QSettings> CQuorvelApp::OpenSettings() {
    auto store =
        std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                    QLatin1String(CSettings::kOrganization), QLatin1String(CSettings::kApplication));
    store->setFallbacksEnabled(false);  // do not read what other users or programs stored
    return store;
}

std::vector<std::string> CQuorvelApp::ArgumentTexts() {
    std::vector<std::string> texts;
    const QStringList list = arguments().mid(1);
    for (const QString& argument : list) texts.push_back(argument.toStdString());
    return texts;
}

bool CQuorvelApp::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        if (m_messages == nullptr) throw;
        m_messages->ShowError(activeWindow(), widget_message::SentenceOf(error));
    }
    return false;
}

void InitInstance(CMainFrame& frame, const std::vector<std::string>& arguments) {
    CMyCommandInfo commandLine;
    commandLine.Parse(arguments);
    if (commandLine.files.empty()) {
        new CWhenExposed(*frame.windowHandle(), [&frame] { frame.RunCommand(CCommandId::SelectFiles); });
        return;
    }
    frame.Document().CompareFileList(commandLine.files, commandLine.channelClass, 0.0, 0.0);
}
