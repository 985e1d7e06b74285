#include "app/quorvel_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <utility>

#include "app/dialogs/file_picker.h"
#include "app/dialogs/printer_picker.h"
#include "app/messages.h"
#include "app/settings.h"
#include "app/table/summary_list.h"
#include "compare/document.h"
#include "compare/export.h"
#include "compare/plots/page_table.h"
#include "widgets/pdf_file.h"

namespace {

constexpr int kBannerPadding = 6;  // pixels
constexpr int kHintMargin = 24;    // pixels

CChartSize ClientArea(const QWidget& widget) {
    return {widget.width(), widget.height()};
}

CFileFilter AllFiles() {
    return {"All Files (*.*)", "*.*"};
}

CFileRequest SaveRequest(const QString& title, const QString& folder, std::vector<CFileFilter> filters) {
    CFileRequest request;
    request.kind = PickerKind::Save;
    request.title = title;
    request.folder = folder;
    request.filters = std::move(filters);
    request.askBeforeOverwriting = true;
    return request;
}

}  // namespace

CQuorvelView::CQuorvelView(CQuorvelDoc& document, CChartControl& chart, const CWindowServices& services,
                           QWidget* parent)
    : QWidget(parent),
      m_document(document),
      m_chart(chart),
      m_services(services),
      m_hint(new QLabel(this)),
      m_banner(new QLabel(this)) {
    setObjectName(QStringLiteral("view"));
    setAccessibleName(tr("Comparison"));
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    m_hint->setMargin(kHintMargin);
    m_banner->setObjectName(QStringLiteral("banner"));
    m_banner->setMargin(kBannerPadding);
    m_banner->setWordWrap(true);
    m_banner->setAutoFillBackground(true);
    m_banner->setBackgroundRole(QPalette::ToolTipBase);
    m_banner->setForegroundRole(QPalette::ToolTipText);
    m_banner->hide();
    ShowHint(tr("Choose File > Select Files... or drop signal files here to compare them."));
    m_document.AddObserver(*this);
    m_isReady = true;
}

CQuorvelView::~CQuorvelView() {
    m_document.RemoveObserver(*this);
    m_chart.Destroy();
}

void CQuorvelView::OnDocumentUpdate(int hint) {
    if (hint < kRunCompleted) return;
    if (hint == kRunCompleted) m_run = RunState::Completed;
    // What the document holds after a run that stopped is no result: the table of the run before stays.
    if (m_run == RunState::Stopped) return;
    const bool hadFocus = HasFocusInside();
    if (m_chart.Exists()) {
        m_chart.Destroy();
        update();
    }

    const bool isSummary = !HasChart(m_document.CurrentPageId());
    const bool hasData = isSummary ? !m_document.ComputedSignals().empty() : m_document.ChartBlock().seriesCount > 0;
    if (!hasData || m_run == RunState::None) {
        if (m_run == RunState::Completed) {
            ShowHint(
                tr("There are no curves to show on this page. Choose another page under Plot Type, or select "
                   "other files."));
        }
        emit NoDataToShow();
        return;
    }
    if (hint == kRunCompleted) {
        const std::vector<std::int32_t>& pages = m_document.PageList();
        emit PagesAvailable(QList<int>(pages.begin(), pages.end()));
    }
    if (isSummary) {
        ShowTable();
    } else {
        ShowChartPage();
    }
    TakeFocus(hadFocus);
}

bool CQuorvelView::HasFocusInside() const {
    const QWidget* const focused = window()->focusWidget();
    return focused != nullptr && isAncestorOf(focused);
}

void CQuorvelView::TakeFocus(bool hadFocus) {
    const bool isWanted = hadFocus || m_hadFocusBeforeRun || window()->focusWidget() == nullptr;
    m_hadFocusBeforeRun = false;
    if (!isWanted) return;
    // A chart is made anew at every update: without this the keyboard would go to the page selector.
    QWidget* const shown = IsTableShown() ? m_list : findChild<QWidget*>(QStringLiteral("chart"));
    if (shown != nullptr) shown->setFocus();
}

void CQuorvelView::BeginRun() {
    m_run = RunState::Stopped;
    m_hadFocusBeforeRun = HasFocusInside();
    m_chart.Destroy();
    if (m_list == nullptr) {
        ShowHint(tr("Comparing ..."));
        return;
    }
    HideAll();
    m_list->MarkPreviousRun(true);
    m_banner->setText(tr("Comparing ... These are the results of the previous run."));
    m_banner->show();
    m_list->show();
    LayOut();
}

void CQuorvelView::EndRun() {
    if (m_run != RunState::Stopped) return;
    if (m_list == nullptr) {
        ShowHint(tr("Nothing was compared yet. Choose File > Select Files... to compare signals."));
        return;
    }
    m_banner->setText(tr("The last run stopped. These are the results of the previous run."));
    LayOut();
}

bool CQuorvelView::IsTableShown() const {
    return m_list != nullptr && !m_list->isHidden();
}

bool CQuorvelView::IsChartShown() const {
    return m_chart.Exists();
}

void CQuorvelView::ShowTable() {
    HideAll();
    List().SetSnapshot(MakeSummarySnapshot(m_document.ComputedSignals()));
    List().show();
    LayOut();
}

void CQuorvelView::ShowChartPage() {
    HideAll();
    ShowChart(m_chart, this, ClientArea(*this), m_document.ChartBlock(), m_document.SeriesNames(), m_lineStyles);
    update();
}

void CQuorvelView::ShowHint(const QString& text) {
    HideAll();
    m_hint->setText(text);
    m_hint->show();
    LayOut();
}

void CQuorvelView::HideAll() {
    m_hint->hide();
    m_banner->hide();
    if (m_list != nullptr) m_list->hide();
}

CSummaryList& CQuorvelView::List() {
    if (m_list == nullptr) {
        m_list = new CSummaryList(this);
        connect(m_list, &CSummaryList::ContextMenuAsked, this,
                [this](const QPoint& position, int row) { emit ContextMenuRequested(position, RowPath(row)); });
    }
    return *m_list;
}

void CQuorvelView::LayOut() {
    m_hint->setGeometry(rect());
    int top = 0;
    if (!m_banner->isHidden()) {
        top = std::min(m_banner->heightForWidth(width()), height());
        m_banner->setGeometry(0, 0, width(), top);
    }
    if (m_list != nullptr) m_list->setGeometry(0, top, width(), height() - top);
}

void CQuorvelView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_isReady && m_chart.Exists()) ResizeChart(m_chart, ClientArea(*this));
    LayOut();
}

void CQuorvelView::contextMenuEvent(QContextMenuEvent* event) {
    emit ContextMenuRequested(event->globalPos(), {});
    event->accept();
}

QString CQuorvelView::RowPath(int row) const {
    return row < 0 ? QString() : QString::fromStdString(m_list->Snapshot().paths.at(static_cast<std::size_t>(row)));
}

void CQuorvelView::ChoosePage(std::int32_t pageId) {
    m_document.SelectPage(pageId);
}

void CQuorvelView::OnCopy() {
    if (!IsChartShown()) return;
    m_chart.CopyMetafile(kMetafileSize);
    emit Reported(tr("The plot was copied to the clipboard."));
}

void CQuorvelView::OnCopyData() {
    if (!IsTableShown()) return;
    QGuiApplication::clipboard()->setText(m_list->CopyDataText());
    emit Reported(tr("The table was copied to the clipboard."));
}

void CQuorvelView::OnSaveBmp() {
    SavePicture(PictureKind::Bitmap);
}

void CQuorvelView::OnSaveWmf() {
    SavePicture(PictureKind::Metafile);
}

void CQuorvelView::SavePicture(PictureKind kind) {
    if (!IsChartShown()) return;
    const bool isBitmap = kind == PictureKind::Bitmap;
    const CFileFilter ownFilter =
        isBitmap ? CFileFilter{"Windows Bitmap(*.bmp)", "*.bmp"} : CFileFilter{"Windows Metafile(*.wmf)", "*.wmf"};
    const QString title = isBitmap ? tr("Save Bitmap as") : tr("Save Metafile as");
    const auto picked = m_services.picker.Pick(this, SaveRequest(title, m_pictureFolder, {ownFilter, AllFiles()}));
    if (!picked) return;

    const QString& path = picked->paths.front();
    const ks::WriteResult result = isBitmap ? m_chart.ExportBitmap(kBitmapSize, path.toStdString())
                                            : m_chart.ExportMetafile(kMetafileSize, path.toStdString());
    if (result != ks::WriteResult::Written) {
        m_services.messages.ShowError(this, tr("The plot could not be written to %1.").arg(path));
        return;
    }
    m_pictureFolder = DriveAndFolder(path);
    emit Reported(tr("The plot was saved as %1.").arg(path));
}

void CQuorvelView::OnSaveHtml() {
    if (!IsTableShown() || m_run != RunState::Completed) return;
    // Not the fallback of the setting: a first report starts in the home folder.
    const QString folder = m_services.settings.Text(QString::fromLatin1(setting::kUdsOutputDir.name), QString());
    const auto picked = m_services.picker.Pick(
        this, SaveRequest(tr("Save Results to HTML File"), folder,
                          {{"HTML Files (*.html)", "*.html"}, {"HTML Files (*.htm)", "*.htm"}, AllFiles()}));
    if (!picked) return;

    const QString& path = picked->paths.front();
    switch (WriteHtmlReport(path.toStdString(), m_list->DisplayedTable())) {
        case ks::WriteResult::NotOpened:
            return;
        case ks::WriteResult::NotCompleted:
            m_services.messages.ShowError(this, tr("The report could not be written to %1.").arg(path));
            return;
        case ks::WriteResult::Written:
            break;
    }
    m_services.settings.Set(setting::kUdsOutputDir, DriveAndFolder(path));
    emit Reported(tr("The report was saved as %1.").arg(path));
}

void CQuorvelView::OnPrint() {
    if (!IsChartShown()) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(QStringLiteral("Quorvel - ") + QString::fromUtf8(PageName(m_document.CurrentPageId())));
    if (!m_services.printers.Pick(this, printer, 1)) return;

    const PaintPages paint = [this](QPagedPaintDevice& device) {
        QPainter painter;
        if (!painter.begin(&device)) return false;
        m_chart.PaintOnto(painter, QRectF(0.0, 0.0, device.width(), device.height()));  // inside the margins
        return painter.end();
    };
    if (MakesPdfFile(printer)) {
        const QString path = printer.outputFileName();
        const CPdfForm form{printer.pageLayout(), printer.docName()};
        if (WritePdfFile(path.toStdString(), form, paint) != ks::WriteResult::Written) {
            m_services.messages.ShowError(this, tr("The plot could not be printed to %1.").arg(path));
            return;
        }
    } else if (!paint(printer) || printer.printerState() == QPrinter::Error) {
        m_services.messages.ShowError(this, tr("The plot could not be printed. Check the printer or the output file."));
        return;
    }
    emit Reported(tr("The plot was printed."));
}
