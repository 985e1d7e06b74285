#include "app/dialogs/file_picker.h"
#include "app/dialogs/printer_picker.h"
#include "app/main_frame.h"
#include "app/message_box.h"
#include "app/quorvel_app.h"
#include "app/settings.h"
#include "app/window_services.h"

#include <QSettings>

#include <memory>

int main(int argc, char** argv) {
    CMessageBoxes messages;
    CQuorvelApp application(argc, argv);
    application.SetMessages(messages);
    const std::unique_ptr<QSettings> store = CQuorvelApp::OpenSettings();
    CSettings settings(*store);
    CFileDialogs picker;
    CPrinterDialogs printers;
    CMainFrame frame({settings, picker, messages, printers});
    frame.show();
    InitInstance(frame, CQuorvelApp::ArgumentTexts());
    return CQuorvelApp::exec();
}
