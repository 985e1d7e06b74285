#include "viewer/uds_dialog.h"

#include "files/file_request.h"
#include "files/path_text.h"
#include "files/replacing_file.h"
#include "files/same_file.h"
#include "signal/ascii_export.h"
#include "signal/formats/formats.h"
#include "signal/signal_loader.h"
#include "viewer/header_pages.h"
#include "viewer/messages.h"
#include "viewer/print_preview.h"
#include "viewer/printer.h"
#include "viewer/report_pdf.h"
#include "viewer/ui_uds_dialog.h"
#include "viewer/viewer_host.h"
#include "widgets/make_child.h"
#include "widgets/messages.h"
#include "widgets/screen_room.h"
#include "widgets/take_copy.h"

#include <QApplication>
#include <QDropEvent>
#include <QLayout>
#include <QMimeData>
#include <QPrinter>
#include <QScrollArea>
#include <QScrollBar>
#include <QUrl>

#include <exception>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

namespace ksres {
namespace {

constexpr const char* kPointsExtension = ".txt";

ks::CFileRequest PointsRequest(const QString& fileName) {
    const QString extension = QString::fromLatin1(kPointsExtension);
    ks::CFileRequest request = ks::SaveRequest(CUDSDialog::tr("Export Points").toStdString());
    request.filters = {
        {CUDSDialog::tr("ASCI Files (*%1)").arg(extension).toStdString(), std::string("*") + kPointsExtension},
        {CUDSDialog::tr("All Files (*.*)").toStdString(), "*.*"},
    };
    request.suggestedName = (fileName + extension).toStdString();
    request.defaultExtension = extension.mid(1).toStdString();
    return request;
}

/// Invalidates every size hint inside `window`: hidden pages do not report that their values changed.
void ForgetSizeHints(const QWidget& window) {
    const auto widgets = window.findChildren<QWidget*>();
    for (QWidget* const widget : widgets) widget->updateGeometry();
    const auto layouts = window.findChildren<QLayout*>();
    for (QLayout* const layout : layouts) layout->invalidate();
}

/// Scrolls if the screen is too small for the page; prefers to be as large as the page.
class CPageArea : public QScrollArea {
public:
    CPageArea(QWidget* page, QWidget* parent) : QScrollArea(parent) {
        setWidget(page);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);  // it follows the focus of its contents
    }

    /// Includes room for the vertical scroll bar, so that it does not cause a horizontal one.
    [[nodiscard]] QSize sizeHint() const override {
        return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0);
    }
};

/// Shows the wait cursor while it lives.
class CWaitCursor {
public:
    CWaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

/// Keeps paper and printer for the next report, but not the page range of the last one.
void ForgetLastPrint(QPrinter& printer) {
    printer.setPrintRange(QPrinter::AllPages);
    printer.setFromTo(0, 0);
    printer.setCopyCount(1);
    printer.setCollateCopies(true);
    printer.setPageOrder(QPrinter::FirstPageFirst);
}

/// The single local file in a drag; empty when the drag has anything else.
QString DraggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

}  // namespace

CUDSDialog::CUDSDialog(CViewerHost& host, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::CUDSDialog>()), m_host(host) {
    m_ui->setupUi(this);
    AddPages();
    connect(m_ui->modeBox, &QComboBox::currentIndexChanged, this, [this] { m_previewer->Refresh(); });
    connect(m_ui->printButton, &QPushButton::clicked, this, &CUDSDialog::PrintReport);
    connect(m_ui->exportButton, &QPushButton::clicked, this, &CUDSDialog::ExportPoints);
    ShowRecord({}, {});
}

CUDSDialog::~CUDSDialog() = default;

bool CUDSDialog::Open(const QString& path) {
    ks::CLoadedSignal loaded;
    {
        const CWaitCursor wait;
        loaded = ks::LoadSignalAs(ks::kUdsFormat, path.toStdString());
        if (loaded.IsLoaded()) ShowRecord(std::move(loaded.record), path);
    }
    if (loaded.IsLoaded()) return true;
    m_host.ShowError(isVisible() ? this : parentWidget(), QString::fromStdString(loaded.complaints.front()));
    return false;
}

void CUDSDialog::ShowRecord(ks::CNSignal record, const QString& path) {
    m_record = std::move(record);
    m_path = path;
    // A caption shows the mark of a changed document at "[*]", unless it is doubled.
    setWindowTitle(tr("UDS File Specification - %1").arg(FileName().replace("[*]", "[*][*]")));
    for (CHeaderPage* const page : m_pages) page->ShowRecord(m_record);
    m_previewer->Refresh();
    FitSize();
}

CUDSDialog* CUDSDialog::ShowFile(const QString& path, CViewerHost& host, QWidget* parent) {
    auto sheet = std::make_unique<CUDSDialog>(host, parent);
    if (!sheet->Open(path)) return nullptr;
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->show();
    return sheet.release();  // deleted when closed, or with its parent
}

void CUDSDialog::AddPages() {
    const auto addHeaderPage = [this](CHeaderPage* page, const QString& title) {
        m_pages.push_back(page);
        m_ui->pages->addTab(MakeChild<CPageArea>(page, this), title);
    };
    addHeaderPage(MakeChild<CUDSTestDialog>(this), tr("Test"));
    addHeaderPage(MakeChild<CUDSVehDialog>(this), tr("Vehicles"));
    addHeaderPage(MakeChild<CUDSOCCDialog>(this), tr("Occupants"));
    addHeaderPage(MakeChild<CUDSCurveDialog>(this), tr("Curve"));
    m_previewer = MakeChild<CPrintPreviewer>(
        [this](QPrinter& printer) { static_cast<void>(CPrinter(Report()).PaintOn(printer)); }, this);
    m_ui->pages->addTab(MakeChild<CPageArea>(m_previewer, this), tr("Print Preview"));
    SetTabOrder();
}

/// The pages were made last; in the tab order they come after their tabs and before what is below.
void CUDSDialog::SetTabOrder() {
    QWidget* before = m_previewer->LastControl();
    for (QWidget* const next : std::initializer_list<QWidget*>{m_ui->modeBox, m_ui->printButton, m_ui->xButton,
                                                               m_ui->xyButton, m_ui->exportButton, m_ui->closeButton}) {
        setTabOrder(before, next);
        before = next;
    }
}

CReportSubject CUDSDialog::Report() const {
    return {m_record, FileName(), static_cast<CReportMode>(m_ui->modeBox->currentIndex()), QDate::currentDate()};
}

QString CUDSDialog::FileName() const {
    return QString::fromStdString(std::string(ks::FileNameOf(m_path.toStdString())));
}

/// Grows to fit every page, as far as the screen allows. Never shrinks: the user may have enlarged it.
void CUDSDialog::FitSize() {
    ForgetSizeHints(*this);
    resize(WithinScreen(sizeHint(), *this).expandedTo(size()));
}

void CUDSDialog::PrintReport() {
    QPrinter& printer = m_previewer->Printer();
    ForgetLastPrint(printer);
    if (!m_host.AskPrinter(this, printer, CPrinter(Report()).PageCount(printer.pageLayout()))) return;
    const QString file = printer.outputFileName();
    if (IsShownFile(file)) {
        m_host.ShowError(this, viewer_message::OverwritesItself(file));
        return;
    }
    const CPrinter report(Report());
    switch (report.Print(printer)) {
        case CPrintResult::Printed:
            break;
        case CPrintResult::NoPages:
            m_host.ShowError(this, viewer_message::NoSuchPages(report.PageCount(printer.pageLayout())));
            break;
        case CPrintResult::NotOpened:
            m_host.ShowError(this, file.isEmpty() ? viewer_message::NotPrinted(printer.printerName())
                                                  : viewer_message::FileNotOpened(file));
            break;
        case CPrintResult::NotCompleted:
            m_host.ShowError(this, viewer_message::FileNotCompleted(file));
            break;
        case CPrintResult::Damaged:
            m_host.ShowError(this, widget_message::FileDamaged(file));
            break;
    }
    m_previewer->Refresh();  // the paper may have changed
}

void CUDSDialog::ExportPoints() {
    if (!m_ui->xButton->isChecked() && !m_ui->xyButton->isChecked()) {
        m_host.ShowError(this, viewer_message::kNoFormChosen);
        return;
    }
    const auto path = m_host.AskSavePath(this, PointsRequest(FileName()));
    if (!path) return;
    if (IsShownFile(*path)) {
        m_host.ShowError(this, viewer_message::OverwritesItself(*path));
        return;
    }
    const ks::CAsciiForm form = m_ui->xyButton->isChecked() ? ks::CAsciiForm::XY : ks::CAsciiForm::X;
    try {
        switch (ks::ExportAsciiPoints(path->toStdString(), m_record, form)) {
            case ks::CWriteResult::Written:
                break;
            case ks::CWriteResult::NotOpened:
                m_host.ShowError(this, viewer_message::FileNotOpened(*path));
                break;
            case ks::CWriteResult::NotCompleted:
                m_host.ShowError(this, viewer_message::FileNotCompleted(*path));
                break;
            case ks::CWriteResult::Damaged:
                m_host.ShowError(this, widget_message::FileDamaged(*path));
                break;
        }
    } catch (const std::exception& error) {
        m_host.ShowError(this, widget_message::SentenceOf(error));
    }
}

bool CUDSDialog::IsShownFile(const QString& path) const {
    return ks::WouldReplace(path.toStdString(), m_path.toStdString());
}

void CUDSDialog::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(*event->mimeData()).isEmpty()) TakeAsCopy(*event);
}

void CUDSDialog::dragMoveEvent(QDragMoveEvent* event) {
    if (!DraggedFile(*event->mimeData()).isEmpty()) TakeAsCopy(*event);
}

/// Opens the file after the drop: a message would keep the program that the file comes from waiting.
void CUDSDialog::dropEvent(QDropEvent* event) {
    const QString path = DraggedFile(*event->mimeData());
    if (path.isEmpty() || !TakeAsCopy(*event)) return;
    QMetaObject::invokeMethod(
        this, [this, path] { Open(path); }, Qt::QueuedConnection);
}

}  // namespace ksres
