#include "app/quorvel_view.h"

#include "app/messages.h"
#include "app/table/summary_list.h"
#include "app/table/summary_model.h"
#include "chart/chart_control.h"
#include "compare/document.h"
#include "compare/document_host.h"
#include "compare/plots/page_table.h"
#include "compare/run_state.h"
#include "widgets/quiet_color.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QLabel>
#include <QPalette>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace {

constexpr int kBannerPadding = 6;  // pixels
constexpr int kHintMargin = 24;    // pixels

CChartSize ClientArea(const QWidget& widget) {
    return {widget.width(), widget.height()};
}

}  // namespace

CQuorvelView::CQuorvelView(CQuorvelDoc& document, CChartControl& chart, QWidget* parent)
    : QWidget(parent), m_document(document), m_chart(chart), m_hint(new QLabel(this)), m_banner(new QLabel(this)) {
    setObjectName(QStringLiteral("view"));
    setAccessibleName(tr("Comparison"));
    m_hint->setObjectName(QStringLiteral("hint"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    ColorHint();
    m_hint->setMargin(kHintMargin);
    m_banner->setObjectName(QStringLiteral("banner"));
    m_banner->setMargin(kBannerPadding);
    m_banner->setWordWrap(true);
    m_banner->setAutoFillBackground(true);
    m_banner->setBackgroundRole(QPalette::ToolTipBase);
    m_banner->setForegroundRole(QPalette::ToolTipText);
    m_banner->hide();
    ShowHint(app_message::kHowToBegin);
    m_document.AddObserver(*this);
    m_isReady = true;
}

CQuorvelView::~CQuorvelView() {
    m_document.RemoveObserver(*this);
    m_chart.Destroy();
}

void CQuorvelView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) ColorHint();
    QWidget::changeEvent(event);
}

void CQuorvelView::ColorHint() {
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText,
                    QuietColor(colors.color(QPalette::WindowText), colors.color(QPalette::Window)));
    m_hint->setPalette(colors);
}

void CQuorvelView::OnDocumentUpdate(int hint) {
    if (hint < kRunCompleted) return;
    const CRunState run = m_document.Run();
    // After a stopped run the document holds no results: the table of the previous run stays.
    if (run == CRunState::AtWork || run == CRunState::Stopped) return;
    const bool hadFocus = HasFocusInside();
    if (m_chart.Exists()) {
        m_chart.Destroy();
        update();
    }

    const bool isSummary = !HasChart(m_document.CurrentPageId());
    const bool hasData = isSummary ? !m_document.ComputedSignals().empty() : m_document.ChartBlock().seriesCount > 0;
    if (!hasData || run == CRunState::None) {
        if (run == CRunState::Completed) {
            ShowHint(app_message::kNoCurvesToShow);
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
    const bool isWanted = hadFocus || m_hadFocusBefore || window()->focusWidget() == nullptr;
    m_hadFocusBefore = false;
    if (!isWanted) return;
    // Every update makes a new chart: without this the page selector would get the focus.
    QWidget* const shown = ShownTable() != nullptr ? m_list : findChild<QWidget*>(QStringLiteral("chart"));
    if (shown != nullptr) shown->setFocus();
}

void CQuorvelView::OnPageChanging() {
    if (!m_chart.Exists()) return;
    m_hadFocusBefore = HasFocusInside();
    m_chart.Destroy();
    update();
}

void CQuorvelView::OnRunStateChanged(CRunState run) {
    if (run == CRunState::AtWork) ShowRunAtWork();
    if (run == CRunState::Stopped) ShowStoppedRun();
    emit RunStateChanged(run);
}

void CQuorvelView::ShowRunAtWork() {
    m_hadFocusBefore = HasFocusInside();
    m_chart.Destroy();
    if (m_list == nullptr) {
        ShowHint(app_message::kComparing);
        return;
    }
    HideAll();
    m_list->MarkPreviousRun(true);
    m_banner->setText(app_message::kComparingOverPrevious);
    m_banner->show();
    m_list->show();
    LayOut();
}

void CQuorvelView::ShowStoppedRun() {
    if (m_list == nullptr) {
        ShowHint(app_message::kNothingComparedYet);
        return;
    }
    m_banner->setText(app_message::kStoppedOverPrevious);
    LayOut();
}

const CSummaryList* CQuorvelView::ShownTable() const {
    return m_list != nullptr && !m_list->isHidden() ? m_list : nullptr;
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
    ShowChart(m_chart, this, ClientArea(*this), m_document.SharedChartBlock(), m_document.SeriesNames(), m_lineStyles);
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
